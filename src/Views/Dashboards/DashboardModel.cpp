#include "Dashboards/DashboardModel.h"

#include "AppError.h"
#include "Launch.h"

#include <algorithm>

using namespace Qt::StringLiterals;

QCoro::Task<> DashboardModel::load()
{
    const auto self = keep(this);
    const std::optional<AuthUser> user = signedInUser();
    if (!user)
        co_return;
    const Turn turn = loads_.next();
    isLoading = true;
    try {
        const Store store = co_await fetch(user->idToken);
        if (!turn.isOvertaken()) {
            loads_.finish(turn);
            store();
            emit loaded();
        }
    } catch (const AppError& error) {
        if (!turn.isOvertaken())
            fail(texts().failureTitle, error);
    }
    if (turn.isNewest())
        isLoading = false;
}

void DashboardModel::run(const Shortcut& shortcut)
{
    if (shortcut.section)
        router().open(*shortcut.section);
    else
        launch(load());
}

qsizetype DashboardModel::count(const QList<SessionSummary>& sessions, const QList<QString>& statuses)
{
    return std::count_if(sessions.begin(), sessions.end(),
        [&](const SessionSummary& session) { return statuses.contains(session.status().toLower()); });
}

qsizetype DashboardModel::countUpcoming(const QList<SessionSummary>& sessions)
{
    return count(sessions, {u"scheduled"_s, u"confirmed"_s, u"rescheduled"_s});
}
