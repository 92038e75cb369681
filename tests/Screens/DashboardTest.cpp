#include "DashboardTest.h"

#include "Dashboards/AdminDashboardModel.h"
#include "Dashboards/BusinessDashboardModel.h"
#include "Dashboards/NotaryDashboardModel.h"
#include "Launch.h"

using namespace Qt::StringLiterals;

void PrintTo(const Dashboard& dashboard, std::ostream* out)
{
    *out << dashboard.name;
}

namespace {

template <typename Model>
std::shared_ptr<DashboardModel> made(const ScreenContext& context)
{
    return std::make_shared<Model>(context);
}

const Dashboard business{"Business", AppRole::business, made<BusinessDashboardModel>,
    {u"GET /remote-notary/sessions?scope=business"_s, u"GET /business/clients"_s}, u"Business Dashboard"_s,
    u"Schedule and track remote notary sessions for your clients."_s, u"Cannot Load Business Dashboard"_s,
    {u"Business Sessions (doc.text.fill)"_s, u"Clients (person.2.fill)"_s, u"Upcoming (calendar)"_s},
    {u"Book for Client (calendar.badge.plus)! book"_s,
        u"View Sessions (doc.text.magnifyingglass) sessions"_s},
    [](const QList<qsizetype>& counts) {
        return QList<qsizetype>{counts[0], counts[1], counts[0]};
    }};

const Dashboard notary{"Notary", AppRole::notary, made<NotaryDashboardModel>,
    {u"GET /remote-notary/sessions?scope=notary_assigned"_s,
        u"GET /remote-notary/sessions?scope=notary_open"_s},
    u"Notary Dashboard"_s, u"Review assigned sessions, open calls, confirmations, and status updates."_s,
    u"Cannot Load Notary Dashboard"_s,
    {u"Assigned (checkmark.seal.fill)"_s, u"Open Calls (megaphone.fill)"_s, u"Upcoming (calendar)"_s},
    {u"Refresh (arrow.clockwise) again"_s, u"All Sessions (doc.text.magnifyingglass) sessions"_s},
    [](const QList<qsizetype>& counts) {
        return QList<qsizetype>{counts[0], counts[1], counts[0]};
    }};

const Dashboard admin{"Admin", AppRole::admin, made<AdminDashboardModel>,
    {u"GET /remote-notary/sessions?scope=admin_all"_s, u"GET /admin/records"_s, u"GET /admin/users"_s},
    u"Admin Dashboard"_s, u"Review remote sessions, walk-in records, users, notaries, and daily activity."_s,
    u"Cannot Load Admin Dashboard"_s,
    {u"Remote Sessions (video.badge.checkmark)"_s, u"Walk-In Records (person.text.rectangle)"_s,
        u"Users (person.3.fill)"_s, u"Pending (clock.badge.exclamationmark)"_s},
    {u"Records (tray.full.fill) adminRecords"_s, u"Users (person.3.fill) adminUsers"_s,
        u"Notaries (person.badge.shield.checkmark) adminNotaries"_s, u"Refresh (arrow.clockwise) again"_s},
    [](const QList<qsizetype>& counts) {
        return QList<qsizetype>{counts[0], counts[1], counts[2], 0};
    }};

} // namespace

const QList<Dashboard>& dashboards()
{
    static const QList<Dashboard> all{business, notary, admin};
    return all;
}

DashboardTest::DashboardTest()
{
    signIn(account(u"Jordan Ellis"_s, {GetParam().role}), GetParam().role);
    model = GetParam().make(context);
}

qsizetype DashboardTest::load()
{
    const qsizetype first = requestCount();
    launch(model->load());
    settle();
    return first;
}

QByteArray DashboardTest::records(qsizetype count)
{
    QByteArrayList list;
    for (qsizetype id = 1; id <= count; ++id)
        list += R"({"id": )" + QByteArray::number(id) + R"(, "status": "scheduled", "type": "walkin"})";
    return '[' + list.join(',') + ']';
}

void DashboardTest::answerAll(qsizetype first, const QList<qsizetype>& counts)
{
    for (qsizetype i = 0; i < perLoad(); ++i)
        answer(first + i, records(counts[i]));
}

QList<QString> DashboardTest::values() const
{
    QList<QString> values;
    for (const DashboardModel::Tile& tile : model->tiles())
        values += tile.value;
    return values;
}

QList<QString> DashboardTest::valuesFor(const QList<qsizetype>& counts)
{
    QList<QString> values;
    for (const qsizetype value : GetParam().tileValues(counts))
        values += QString::number(value);
    return values;
}
