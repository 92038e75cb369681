#pragma once

#include "Dashboards/DashboardModel.h"

/// What the office sees first: everything counted, and the first remote sessions.
class AdminDashboardModel : public DashboardModel
{
    Q_OBJECT

public:
    using DashboardModel::DashboardModel;

    Texts texts() const override;
    QList<Tile> tiles() const override;
    QList<Shortcut> shortcuts() const override;

    const QList<SessionSummary>& sessions() const { return sessions_; }
    const QList<AdminRecordItem>& records() const { return records_; }
    const QList<AdminUserRecord>& users() const { return users_; }
    /// The first 8 sessions in the bridge's order.
    QList<SessionSummary> recentSessions() const { return sessions_.first(qMin(sessions_.size(), 8)); }
    RowListModel& recentRows() { return recentRows_; }

    void viewAllSessions() { router().open(AppSection::sessions); }

protected:
    QCoro::Task<Store> fetch(APIClient client, QString idToken) override;

private:
    QList<SessionSummary> sessions_;
    QList<AdminRecordItem> records_;
    QList<AdminUserRecord> users_;
    RowListModel recentRows_;
};
