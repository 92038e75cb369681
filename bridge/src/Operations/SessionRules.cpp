#include "Operations/SessionRules.h"

#include "Http/Problem.h"

namespace bridge {

Session visibleSession(soci::session& sql, const Account& account, Id id)
{
    std::optional<Session> session = findVisibleSession(sql, account, id);
    if (!session)
        throw notFound();
    return *session;
}

Session writableSession(soci::session& sql, const Account& account, Id id)
{
    Session session = visibleSession(sql, account, id);
    if (!takesPart(account, session))
        throw forbidden();
    return session;
}

} // namespace bridge
