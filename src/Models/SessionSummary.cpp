#include "SessionSummary.h"

#include "RecordFields.h"

using namespace Qt::StringLiterals;

namespace {

QString updatedAt(const SessionSummary& session)
{
    return session.raw.string(u"updated_at"_s);
}

} // namespace

QString SessionSummary::status() const
{
    return raw.string(u"status"_s, u"requested"_s);
}

QString SessionSummary::reference() const
{
    return raw.string(u"reference_id"_s, raw.string(u"id"_s));
}

bool SessionSummary::canCancel() const
{
    static const QList<QString> cancellable{
        u"requested"_s, u"pending"_s, u"scheduled"_s, u"confirmed"_s, u"rescheduled"_s};
    return cancellable.contains(status().toLower());
}

QString SessionSummary::displayDateTime() const
{
    const QString dateTime = RecordFields::dateTime(raw);
    return dateTime.isEmpty() ? raw.string(u"created_at"_s, u"Date pending"_s) : dateTime;
}

QList<QString> SessionSummary::signerNames() const
{
    const QString clientName = raw.string(u"user_full_name"_s, raw.string(u"client_name"_s));
    return RecordFields::signerNames(
        raw, raw.string(u"signer_name"_s, raw.string(u"contact_name"_s, clientName)));
}

bool operator==(const SessionSummary& a, const SessionSummary& b)
{
    return a.id == b.id && a.reference() == b.reference() && a.status() == b.status()
        && updatedAt(a) == updatedAt(b);
}
