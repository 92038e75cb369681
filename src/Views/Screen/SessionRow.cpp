#include "Screen/SessionRow.h"

using namespace Qt::StringLiterals;

SessionPeople sessionPeople(const SessionSummary& session)
{
    const JSONObject& raw = session.raw;
    SessionPeople people;
    people.client
        = raw.string(u"client_name"_s, raw.string(u"user_full_name"_s, raw.string(u"contact_name"_s)));
    people.email = raw.string(u"client_email"_s, raw.string(u"user_email"_s, raw.string(u"contact_email"_s)));
    return people;
}

QString assignedNotaryLine(const SessionSummary& session)
{
    const bool isAssigned = session.raw.intValue(u"assigned_notary_id"_s).value_or(0) >= 1;
    const QString nameless = isAssigned ? u"Name Not Known"_s : u"Not Assigned"_s;
    return u"Assigned Notary: "_s + session.raw.string(u"assigned_notary_name"_s, nameless);
}

QString witnessLine(const SessionSummary& session)
{
    if (!session.raw.boolValue(u"requires_witness"_s))
        return u"No Witness Required"_s;
    const QString name = session.raw.string(u"witness_name"_s);
    return name.isEmpty() ? u"Witness Required"_s : u"Witness Required: "_s + name;
}

RowTexts sessionRow(const SessionSummary& session, const QString& when)
{
    const SessionPeople people = sessionPeople(session);
    const QString documentType = session.raw.string(u"document_type"_s, u"Remote notary session"_s);
    const QString status = session.status();
    const QStringList signers = session.signerNames();

    RowTexts row;
    row.id = session.id;
    row.title = signers.isEmpty() ? people.client : signers.join(u", "_s);
    row.secondary = when;
    row.metaIcon = u"doc.text.fill"_s;
    row.meta = documentType;
    row.pill = status;
    row.search = QStringList{session.reference(), people.client, people.email, status, documentType, when,
        signers.join(u' ')}
                     .join(u' ');
    row.filter = status.toLower();
    return row;
}
