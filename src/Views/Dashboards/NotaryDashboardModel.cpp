#include "Dashboards/NotaryDashboardModel.h"

#include "AppError.h"
#include "Screen/DashboardRows.h"
#include "StartedRequest.h"
#include "Worker.h"

#include <QCoroFuture>

#include <algorithm>

using namespace Qt::StringLiterals;

/// The results of one load with their rows.
struct NotaryDashboardModel::Lists
{
    QList<SessionSummary> assignments;
    QList<SessionSummary> openCalls;
    RowListModel::Content assignedRows;
    RowListModel::Content openCallRows;
};

DashboardModel::Texts NotaryDashboardModel::texts() const
{
    return {u"Notary Dashboard"_s,
        u"Review assigned sessions, open calls, confirmations, and status updates."_s,
        u"Cannot Load Notary Dashboard"_s};
}

QList<DashboardModel::Tile> NotaryDashboardModel::tiles() const
{
    return {
        {u"Assigned"_s, u"checkmark.seal.fill"_s, QString::number(assignments_.size())},
        {u"Open Calls"_s, u"megaphone.fill"_s, QString::number(openCalls_.size())},
        {u"Upcoming"_s, u"calendar"_s, QString::number(countUpcoming(assignments_))},
    };
}

QList<Shortcut> NotaryDashboardModel::shortcuts() const
{
    return {
        {u"Refresh"_s, u"arrow.clockwise"_s, std::nullopt},
        {u"All Sessions"_s, u"doc.text.magnifyingglass"_s, AppSection::sessions},
    };
}

QCoro::Task<DashboardModel::Store> NotaryDashboardModel::fetch(APIClient client, QString idToken)
{
    auto assignedTask = started(client, &APIClient::getSessions, u"notary_assigned"_s, QString(), idToken);
    auto openTask = started(client, &APIClient::getSessions, u"notary_open"_s, QString(), idToken);
    Lists received;
    received.assignments = co_await assignedTask;
    received.openCalls = co_await openTask;
    auto preparing = [received] {
        Lists lists = received;
        lists.assignedRows = DashboardRows::of(lists.assignments, DashboardRows::assignedSession);
        lists.openCallRows = DashboardRows::of(lists.openCalls, DashboardRows::openCall);
        return lists;
    };
    const QFuture<Lists> prepared = onWorker(std::move(preparing));
    Lists lists = co_await prepared;
    Store store = [this, lists] { show(lists); };
    co_return store;
}

void NotaryDashboardModel::show(const Lists& lists)
{
    assignments_ = lists.assignments;
    openCalls_ = lists.openCalls;
    assignedRows_.setContent(lists.assignedRows);
    openCallRows_.setContent(lists.openCallRows);
    if (!selected_)
        return;
    const SessionSummary* session = find(selected_->id);
    selected_ = session ? std::optional(*session) : std::nullopt;
    emit selectionChanged();
}

const SessionSummary* NotaryDashboardModel::find(qint64 id) const
{
    for (const QList<SessionSummary>* list : {&assignments_, &openCalls_}) {
        const auto found = std::find_if(
            list->begin(), list->end(), [id](const SessionSummary& session) { return session.id == id; });
        if (found != list->end())
            return &*found;
    }
    return nullptr;
}

void NotaryDashboardModel::select(qint64 id)
{
    const SessionSummary* session = find(id);
    if (!session || (selected_ && selected_->id == id))
        return;
    selected_ = *session;
    emit selectionChanged();
}

void NotaryDashboardModel::open(qint64 id)
{
    router().open(AppSection::sessions, id);
}

QCoro::Task<> NotaryDashboardModel::accept(qint64 id)
{
    const auto self = keep(this);
    const std::optional<AuthUser> user = signedInUser();
    if (!user || accepting_.contains(id))
        co_return;
    // Calls are accepted side by side: only a sign-out ends this run, not the next call.
    Turns runs(epoch());
    const Turn turn = runs.next();
    accepting_.insert(id);
    emit acceptingChanged();
    try {
        co_await api().acceptOpenCall(id, user->idToken);
        if (!turn.isOver()) {
            outdateLoads();
            co_await load();
        }
    } catch (const AppError& error) {
        fail(turn, u"Cannot Accept Session"_s, error);
    }
    accepting_.remove(id);
    emit acceptingChanged();
}
