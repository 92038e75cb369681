#include "Screen/SessionFields.h"

using namespace Qt::StringLiterals;

SessionFields SessionFields::of(const SessionSummary& session)
{
    const JSONObject& raw = session.raw;
    SessionFields fields;
    fields.status = session.status();
    fields.confirmedDate = raw.string(u"scheduled_date"_s, raw.string(u"preferred_date"_s));
    fields.confirmedTime = raw.string(u"scheduled_time"_s, raw.string(u"preferred_time"_s));
    fields.proposedFee = raw.string(u"proposed_fee"_s);
    fields.statusNote = raw.string(u"status_note"_s, raw.string(u"admin_notes"_s));
    fields.selectedNotaryId = raw.intValue(u"assigned_notary_id"_s).value_or(0);
    fields.requiresWitness = raw.boolValue(u"requires_witness"_s);
    fields.witnessName = raw.string(u"witness_name"_s);
    return fields;
}

/// What both bodies have in common.
static QJsonObject common(const SessionFields& fields)
{
    return {
        {u"status"_s, fields.status},
        {u"confirmed_date"_s, fields.confirmedDate},
        {u"confirmed_time"_s, fields.confirmedTime},
        {u"scheduled_date"_s, fields.confirmedDate},
        {u"scheduled_time"_s, fields.confirmedTime},
        {u"proposed_fee"_s, fields.proposedFee},
        {u"status_note"_s, fields.statusNote},
    };
}

QJsonObject SessionFields::notaryUpdate() const
{
    QJsonObject body = common(*this);
    body[u"requires_witness"_s] = requiresWitness;
    body[u"witness_name"_s] = witnessName;
    return body;
}

QJsonObject SessionFields::adminChanges() const
{
    QJsonObject body = common(*this);
    if (selectedNotaryId >= 1)
        body[u"assigned_notary_id"_s] = selectedNotaryId;
    return body;
}

void SessionFields::takeNotaryUpdate(const SessionFields& sent)
{
    const qint64 notary = selectedNotaryId;
    *this = sent;
    selectedNotaryId = notary;
}

void SessionFields::takeAdminChanges(const SessionFields& sent)
{
    SessionFields taken = sent;
    taken.requiresWitness = requiresWitness;
    taken.witnessName = witnessName;
    *this = taken;
}
