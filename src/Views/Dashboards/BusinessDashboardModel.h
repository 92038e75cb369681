#pragma once

#include "Dashboards/DashboardModel.h"

/// What a business sees first: its sessions counted, and its clients.
class BusinessDashboardModel : public DashboardModel
{
    Q_OBJECT

public:
    using DashboardModel::DashboardModel;

    Texts texts() const override;
    QList<Tile> tiles() const override;
    QList<Shortcut> shortcuts() const override;

    const QList<SessionSummary>& sessions() const { return sessions_; }
    /// As the bridge describes them, in its order.
    const QList<JSONObject>& clients() const { return clients_; }
    RowListModel& clientRows() { return clientRows_; }

protected:
    QCoro::Task<Store> fetch(APIClient client, QString idToken) override;

private:
    QList<SessionSummary> sessions_;
    QList<JSONObject> clients_;
    RowListModel clientRows_;
};
