#include "Screen/DashboardRows.h"

using namespace Qt::StringLiterals;

namespace {

RowTexts row(qint64 id, QStringList lines)
{
    lines.removeAll(QString());
    RowTexts row;
    row.id = id;
    row.title = lines.value(0);
    row.secondary = lines.value(1);
    row.meta = lines.value(2);
    return row;
}

RowTexts withStatus(RowTexts row, const SessionSummary& session)
{
    row.pill = session.status();
    return row;
}

} // namespace

QString DashboardRows::sessionName(const SessionSummary& session)
{
    const QStringList signers = session.signerNames();
    if (!signers.isEmpty())
        return signers.join(u", "_s);
    const JSONObject& raw = session.raw;
    return raw.string(u"contact_name"_s, raw.string(u"user_full_name"_s, raw.string(u"client_name"_s)));
}

RowTexts DashboardRows::recentSession(const SessionSummary& session)
{
    return withStatus(row(session.id, {sessionName(session), session.displayDateTime()}), session);
}

RowTexts DashboardRows::assignedSession(const SessionSummary& session)
{
    return withStatus(openCall(session), session);
}

RowTexts DashboardRows::openCall(const SessionSummary& session)
{
    const QString documentType = session.raw.string(u"document_type"_s, u"Remote notary session"_s);
    return row(session.id, {sessionName(session), session.displayDateTime(), documentType});
}

RowTexts DashboardRows::businessClient(const JSONObject& client)
{
    const QString name
        = client.string(u"name"_s, client.string(u"full_name"_s, client.string(u"client_name"_s)));
    RowTexts made = row(0, {name, client.string(u"email"_s, client.string(u"client_email"_s))});
    if (made.title.isEmpty())
        made.title = u"Unnamed client"_s;
    return made;
}
