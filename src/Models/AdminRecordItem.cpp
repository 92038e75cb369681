#include "AdminRecordItem.h"

#include "RecordFields.h"

using namespace Qt::StringLiterals;

QString AdminRecordItem::recordType() const
{
    return raw.string(u"record_type"_s, raw.string(u"type"_s, u"remote"_s));
}

bool AdminRecordItem::isWalkIn() const
{
    return recordType() == u"walkin"_s;
}

QString AdminRecordItem::status() const
{
    return raw.string(u"status"_s, isWalkIn() ? u"complete"_s : u"requested"_s);
}

QString AdminRecordItem::source() const
{
    // Crossed against what one expects: this is how the server names the places of the two kinds.
    return raw.string(
        u"source"_s, isWalkIn() ? u"remote notary camera photos"_s : u"remote_notary_sessions"_s);
}

QString AdminRecordItem::displayDateTime() const
{
    QString dateTime = RecordFields::dateTime(raw);
    if (!dateTime.isEmpty())
        return dateTime;
    return raw.string(u"created_at"_s, raw.string(u"ny_datetime"_s, u"Date pending"_s));
}

QList<QString> AdminRecordItem::signerNames() const
{
    const QString clientName = raw.string(u"client_name"_s, raw.string(u"name"_s));
    return RecordFields::signerNames(
        raw, raw.string(u"signer_name"_s, raw.string(u"contact_name"_s, clientName)));
}

bool operator==(const AdminRecordItem& a, const AdminRecordItem& b)
{
    return a.id == b.id && a.recordType() == b.recordType()
        && a.raw.string(u"updated_at"_s) == b.raw.string(u"updated_at"_s);
}
