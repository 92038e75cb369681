#include "AppRouter.h"

using namespace Qt::StringLiterals;

AppRouter& AppRouter::shared()
{
    static AppRouter router(NotificationCenter::shared());
    return router;
}

void AppRouter::open(AppSection section, std::optional<qint64> sessionId)
{
    selectedSection = section;
    selectedSessionId = sessionId;
    notifications_.post(u"QuorvelMac.openMainWindow"_s);
}
