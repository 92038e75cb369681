#include "Dashboards/AdminDashboardModel.h"

#include "Screen/DashboardRows.h"
#include "StartedRequest.h"

#include <algorithm>

using namespace Qt::StringLiterals;

DashboardModel::Texts AdminDashboardModel::texts() const
{
    return {u"Admin Dashboard"_s,
        u"Review remote sessions, walk-in records, users, notaries, and daily activity."_s,
        u"Cannot Load Admin Dashboard"_s};
}

static qsizetype countWalkIns(const QList<AdminRecordItem>& records)
{
    // Other than in the records list, the kind counts in any letter case here.
    return std::count_if(records.begin(), records.end(),
        [](const AdminRecordItem& record) { return record.recordType().toLower() == u"walkin"_s; });
}

QList<DashboardModel::Tile> AdminDashboardModel::tiles() const
{
    const qsizetype pending = count(sessions_, {u"requested"_s, u"pending"_s});
    return {
        {u"Remote Sessions"_s, u"video.badge.checkmark"_s, QString::number(sessions_.size())},
        {u"Walk-In Records"_s, u"person.text.rectangle"_s, QString::number(countWalkIns(records_))},
        {u"Users"_s, u"person.3.fill"_s, QString::number(users_.size())},
        {u"Pending"_s, u"clock.badge.exclamationmark"_s, QString::number(pending)},
    };
}

QList<Shortcut> AdminDashboardModel::shortcuts() const
{
    return {
        {u"Records"_s, u"tray.full.fill"_s, AppSection::adminRecords},
        {u"Users"_s, u"person.3.fill"_s, AppSection::adminUsers},
        {u"Notaries"_s, u"person.badge.shield.checkmark"_s, AppSection::adminNotaries},
        {u"Refresh"_s, u"arrow.clockwise"_s, std::nullopt},
    };
}

QCoro::Task<DashboardModel::Store> AdminDashboardModel::fetch(APIClient client, QString idToken)
{
    auto sessionsTask = started(client, &APIClient::getSessions, u"admin_all"_s, QString(), idToken);
    auto recordsTask = started(client, &APIClient::getAdminRecords, idToken);
    auto usersTask = started(client, &APIClient::getAdminUsers, idToken);
    QList<SessionSummary> sessions = co_await sessionsTask;
    QList<AdminRecordItem> records = co_await recordsTask;
    QList<AdminUserRecord> users = co_await usersTask;
    Store store = [this, sessions, records, users] {
        sessions_ = sessions;
        records_ = records;
        users_ = users;
        recentRows_.setContent(DashboardRows::of(recentSessions(), DashboardRows::recentSession));
    };
    co_return store;
}
