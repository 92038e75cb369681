#include "Dashboards/BusinessDashboardModel.h"

#include "Screen/DashboardRows.h"
#include "StartedRequest.h"
#include "Worker.h"

#include <QCoroFuture>

using namespace Qt::StringLiterals;

DashboardModel::Texts BusinessDashboardModel::texts() const
{
    return {u"Business Dashboard"_s, u"Schedule and track remote notary sessions for your clients."_s,
        u"Cannot Load Business Dashboard"_s};
}

QList<DashboardModel::Tile> BusinessDashboardModel::tiles() const
{
    return {
        {u"Business Sessions"_s, u"doc.text.fill"_s, QString::number(sessions_.size())},
        {u"Clients"_s, u"person.2.fill"_s, QString::number(clients_.size())},
        {u"Upcoming"_s, u"calendar"_s, QString::number(countUpcoming(sessions_))},
    };
}

QList<Shortcut> BusinessDashboardModel::shortcuts() const
{
    return {
        {u"Book for Client"_s, u"calendar.badge.plus"_s, AppSection::book, true},
        {u"View Sessions"_s, u"doc.text.magnifyingglass"_s, AppSection::sessions},
    };
}

QCoro::Task<DashboardModel::Store> BusinessDashboardModel::fetch(APIClient client, QString idToken)
{
    auto sessionsTask = started(client, &APIClient::getSessions, u"business"_s, QString(), idToken);
    auto clientsTask = started(client, &APIClient::getBusinessClients, idToken);
    QList<SessionSummary> sessions = co_await sessionsTask;
    QList<JSONObject> clients = co_await clientsTask;
    auto preparing = [clients] { return DashboardRows::of(clients, DashboardRows::businessClient); };
    const QFuture<RowListModel::Content> prepared = onWorker(std::move(preparing));
    RowListModel::Content rows = co_await prepared;
    Store store = [this, sessions, clients, rows] {
        sessions_ = sessions;
        clients_ = clients;
        clientRows_.setContent(rows);
    };
    co_return store;
}
