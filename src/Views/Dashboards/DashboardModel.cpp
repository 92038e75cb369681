#include "Dashboards/DashboardModel.h"

#include "Launch.h"

#include <algorithm>

using namespace Qt::StringLiterals;

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
