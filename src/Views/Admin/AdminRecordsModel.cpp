#include "Admin/AdminRecordsModel.h"

#include "Screen/AdminRows.h"

using namespace Qt::StringLiterals;

/// The same id may stand for a session and for a walk-in record.
static bool isSame(const AdminRecordItem& a, const AdminRecordItem& b)
{
    return a.id == b.id && a.recordType() == b.recordType();
}

static AdminRecordsModel::Kind kind()
{
    return {
        .texts = {
            .title = u"Records"_s,
            .subtitle = u"View, edit, and delete walk-in records and remote session records."_s,
            .searchPlaceholder = u"Search records, signers, status, email"_s,
            .loading = u"Loading records..."_s,
            .cannotLoad = u"Cannot Load Records"_s,
            .noneFound = {u"tray.full.fill"_s, u"No Records Found"_s,
                u"Adjust the search or the type to see other records."_s},
            .noneSelected = {u"tray.full.fill"_s, u"Select a Record"_s,
                u"Choose a remote session or walk-in record to edit or delete."_s},
        },
        .request = &APIClient::getAdminRecords,
        .row = &AdminRows::record,
        .isSame = &isSame,
        .keepsMissing = false,
    };
}

AdminRecordsModel::AdminRecordsModel(const ScreenContext& context) : AdminListOf(context, kind())
{
    onTypeFilter_ = typeFilter.addNotifier([this] { filterByType(); });
}

const QList<AdminRecordsModel::TypeOption>& AdminRecordsModel::typeOptions()
{
    static const QList<TypeOption> options{
        {u"All"_s, u"all"_s},
        {u"Remote Sessions"_s, u"remote"_s},
        {u"Walk-Ins"_s, u"walkin"_s},
    };
    return options;
}

void AdminRecordsModel::filterByType()
{
    const QString wanted = typeFilter.value();
    if (wanted == u"all"_s)
        rows().setFilter({});
    else
        rows().setFilter([wanted](const QString& type) { return type.contains(wanted); });
}
