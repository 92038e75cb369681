#pragma once

#include "Admin/AdminNotariesModel.h"
#include "Admin/AdminRecordsModel.h"
#include "Admin/AdminUsersModel.h"
#include "Launch.h"
#include "ScreenTest.h"

#include <QJsonArray>
#include <QJsonDocument>

/// What the tests of the administration's three lists differ in.
struct RecordsList
{
    using Model = AdminRecordsModel;
    using Detail = AdminRecordDetailModel;
    static constexpr auto path = u"/admin/records";
    static constexpr auto cannotLoad = u"Cannot Load Records";
    static constexpr auto cannotSave = u"Cannot Save Record";
    static constexpr auto cannotDelete = u"Cannot Delete Record";
    static constexpr auto saved = u"Record was updated.";
    static constexpr bool keepsMissing = false;
    static auto& name(AdminRecordDetailModel& detail) { return detail.contactName; }
    static auto& email(AdminRecordDetailModel& detail) { return detail.contactEmail; }
};

struct UsersList
{
    using Model = AdminUsersModel;
    using Detail = AdminUserDetailModel;
    static constexpr auto path = u"/admin/users";
    static constexpr auto cannotLoad = u"Cannot Load Users";
    static constexpr auto cannotSave = u"Cannot Save User";
    static constexpr auto cannotDelete = u"Cannot Delete User";
    static constexpr auto saved = u"User was updated.";
    static constexpr bool keepsMissing = true;
    static auto& name(AdminUserDetailModel& detail) { return detail.name; }
    static auto& email(AdminUserDetailModel& detail) { return detail.email; }
};

struct NotariesList
{
    using Model = AdminNotariesModel;
    using Detail = AdminNotaryDetailModel;
    static constexpr auto path = u"/admin/notaries";
    static constexpr auto cannotLoad = u"Cannot Load Notaries";
    static constexpr auto cannotSave = u"Cannot Save Notary";
    static constexpr auto cannotDelete = u"Cannot Delete Notary";
    static constexpr auto saved = u"Notary was updated.";
    static constexpr bool keepsMissing = true;
    static auto& name(AdminNotaryDetailModel& detail) { return detail.name; }
    static auto& email(AdminNotaryDetailModel& detail) { return detail.email; }
};

using AdminLists = testing::Types<RecordsList, UsersList, NotariesList>;

/// One of the lists of the administration, with an admin signed in.
template <typename List>
class AdminTest : public ScreenTest
{
protected:
    using Model = typename List::Model;

    AdminTest()
    {
        signIn(account(QStringLiteral("Maya"), {AppRole::admin}), AppRole::admin);
        model = std::make_shared<Model>(context);
        leaving.watch(model.get(), [this] { return model->unfinished(); });
    }
    ~AdminTest() override { leaving.forget(); }

    static QString path(qint64 id) { return QString::fromUtf16(List::path) + u'/' + QString::number(id); }

    /// A list in which every record has its id and a name that ends with it.
    static QByteArray list(const QList<int>& ids)
    {
        QJsonArray records;
        for (const int id : ids) {
            records += QJsonObject{{QStringLiteral("id"), id},
                {QStringLiteral("name"), QStringLiteral("Person %1").arg(id)},
                {QStringLiteral("email"), QStringLiteral("p%1@example.com").arg(id)}};
        }
        return QJsonDocument(records).toJson();
    }

    void load()
    {
        launch(model->load());
        settle();
    }
    void loadJson(const QByteArray& json)
    {
        load();
        answer(requestCount() - 1, json);
    }
    void loadList(const QList<int>& ids) { loadJson(list(ids)); }

    void save()
    {
        launch(model->detail()->save());
        settle();
    }
    void deleteRecord()
    {
        launch(model->detail()->deleteRecord());
        settle();
    }

    QList<qint64> loadedIds() const
    {
        QList<qint64> ids;
        for (const auto& record : model->records())
            ids += record.id;
        return ids;
    }
    QStringList titles() const
    {
        QStringList titles;
        for (int row = 0; row < model->rows().rowCount(); ++row)
            titles += model->rows().index(row).data(RowListModel::TitleRole).toString();
        return titles;
    }
    std::optional<qint64> selectedId() const
    {
        return model->selected() ? std::optional(model->selected()->id) : std::nullopt;
    }
    /// The title of the row that is shown as the selected one.
    QString selectedTitle() const
    {
        const std::optional<qint64> row = model->selectedRow();
        const int shown = row ? model->rows().rowOf(*row) : -1;
        return model->rows().index(shown).data(RowListModel::TitleRole).toString();
    }
    QString name() const { return List::name(*model->detail()).value(); }
    void typeName(const QString& name) { List::name(*model->detail()) = name; }
    bool isAsking() const { return leaving.question.value().has_value(); }

    std::shared_ptr<Model> model;
};
