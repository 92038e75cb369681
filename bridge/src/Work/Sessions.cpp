#include "Work/Sessions.h"

#include "Store/Query.h"
#include "Work/Uploads.h"

#include <nlohmann/json.hpp>

namespace bridge {

static const std::string selectSessions
    = "select s.id, s.reference_id, coalesce(s.owner_id, 0), coalesce(u.full_name, ''), coalesce(u.email, "
      "''),"
      " coalesce(s.business_id, 0), coalesce(s.notary_id, 0), coalesce(nu.full_name, n.name, ''),"
      " s.status, s.status_note, s.contact_name, s.contact_email, s.contact_phone,"
      " s.client_name, s.client_email, s.client_phone, s.asap, s.retrieval_option, s.document_type,"
      " s.act_unknown, s.act_count, s.details, s.signers, s.requires_witness, s.witness_name,"
      " s.needs_apostille, s.notes, s.preferred_date, s.preferred_time, s.scheduled_date, s.scheduled_time,"
      " s.proposed_fee, s.timezone, s.booking_source, s.created_at, s.updated_at"
      " from sessions s left join users u on u.id = s.owner_id"
      " left join notaries n on n.id = s.notary_id left join users nu on nu.id = n.user_id";

static void fetchInto(Query& query, Session& s, std::string& signers)
{
    query.into(s.id).into(s.referenceId).into(s.ownerId).into(s.ownerName).into(s.ownerEmail);
    query.into(s.businessId).into(s.notaryId).into(s.notaryName);
    query.into(s.status).into(s.statusNote).into(s.contactName).into(s.contactEmail).into(s.contactPhone);
    query.into(s.clientName).into(s.clientEmail).into(s.clientPhone).into(s.asap).into(s.retrievalOption);
    query.into(s.documentType).into(s.actUnknown).into(s.actCount).into(s.details).into(signers);
    query.into(s.requiresWitness).into(s.witnessName).into(s.needsApostille).into(s.notes);
    query.into(s.preferredDate).into(s.preferredTime).into(s.scheduledDate).into(s.scheduledTime);
    query.into(s.proposedFee).into(s.timezone).into(s.bookingSource).into(s.createdAt).into(s.updatedAt);
}

static std::string packed(const std::vector<Signer>& signers)
{
    nlohmann::json list = nlohmann::json::array();
    for (const Signer& signer : signers)
        list.push_back({signer.name, signer.email, signer.phone, signer.idType, signer.idExpiration});
    return list.dump();
}

static std::vector<Signer> unpacked(const std::string& text)
{
    std::vector<Signer> signers;
    for (const nlohmann::json& signer : nlohmann::json::parse(text))
        signers.push_back({signer[0], signer[1], signer[2], signer[3], signer[4]});
    return signers;
}

static void fetchEach(Query& query, const RowSink<Session>& take)
{
    Session session;
    std::string signers;
    fetchInto(query, session, signers);
    bool isWanted = true;
    while (isWanted && query.next()) {
        session.signers = unpacked(signers);
        isWanted = take(session);
    }
}

static std::optional<Session> fetchOne(Query& query)
{
    std::optional<Session> found;
    fetchEach(query, [&found](const Session& session) {
        found = session;
        return false;
    });
    return found;
}

static const char* conditionOf(Scope scope)
{
    switch (scope) {
    case Scope::Own:
        return "s.owner_id = :self";
    case Scope::Business:
        return "s.business_id = :self";
    case Scope::AssignedToNotary:
        return "s.notary_id = :self";
    case Scope::OpenCalls:
        return "s.notary_id is null and s.status in ('requested', 'pending') and :self > 0";
    case Scope::All:
        return ":self > 0";
    }
    return "";
}

static Id selfIn(const Account& account, Scope scope)
{
    switch (scope) {
    case Scope::Business:
        return account.businessId;
    case Scope::AssignedToNotary:
        return account.notaryId;
    case Scope::OpenCalls:
        return account.isNotaryActive ? account.notaryId : 0;
    default:
        return account.id;
    }
}

void eachSession(soci::session& sql, const Account& account, Scope scope, const std::string& status,
    const RowSink<Session>& take)
{
    Query query(sql,
        selectSessions + " where " + conditionOf(scope)
            + " and (:status = '' or s.status = :status) order by s.id desc");
    query.bind("self", selfIn(account, scope)).bind("status", status);
    fetchEach(query, take);
}

std::optional<Session> findVisibleSession(soci::session& sql, const Account& account, Id id)
{
    Query query(sql,
        selectSessions
            + " where s.id = :id and (:admin = 1 or s.owner_id = :user or s.business_id = :business"
              " or s.notary_id = :notary"
              " or (:active = 1 and s.notary_id is null and s.status in ('requested', 'pending')))");
    query.bind("id", id).bind("admin", account.isAdmin()).bind("user", account.id);
    query.bind("business", account.businessId).bind("notary", account.notaryId);
    query.bind("active", account.isNotaryActive);
    return fetchOne(query);
}

bool takesPart(const Account& account, const Session& session)
{
    return account.isAdmin() || session.ownerId == account.id
        || (account.businessId != 0 && session.businessId == account.businessId)
        || (account.notaryId != 0 && session.notaryId == account.notaryId);
}

static std::string nextReference(soci::session& sql, Moment now)
{
    std::string day = newYorkDate(now);
    std::erase(day, '-');
    Query(sql,
        "insert into reference_days(day, given) values(:day, 1)"
        " on conflict(day) do update set given = given + 1")
        .bind("day", day)
        .run();
    long long number = 0;
    Query query(sql, "select given from reference_days where day = :day");
    query.bind("day", day).into(number).next();
    std::string digits = std::to_string(number);
    if (digits.size() < 4)
        digits.insert(0, 4 - digits.size(), '0');
    return "RN-" + day + '-' + digits;
}

// Another appointment or another contact is no other status.
static void rememberStatus(soci::session& sql, const Session& session, Id by, Moment now)
{
    Query(sql,
        "insert into status_history(session_id, user_id, status, note, changed_at)"
        " select :session, nullif(:user, 0), :status, :note, :now where not exists (select 1 from"
        " (select status, note from status_history where session_id = :session order by id desc limit 1)"
        " where status = :status and note = :note)")
        .bind("session", session.id)
        .bind("user", by)
        .bind("status", session.status)
        .bind("note", session.statusNote)
        .bind("now", stamp(now))
        .run();
}

Session createSession(soci::session& sql, Session session, Moment now)
{
    session.referenceId = nextReference(sql, now);
    session.createdAt = session.updatedAt = stamp(now);
    Query query(sql,
        "insert into sessions(reference_id, owner_id, business_id, notary_id, status, status_note, "
        "contact_name,"
        " contact_email, contact_phone, client_name, client_email, client_phone, asap, retrieval_option,"
        " document_type, act_unknown, act_count, details, signers, requires_witness, witness_name,"
        " needs_apostille, notes, preferred_date, preferred_time, scheduled_date, scheduled_time, "
        "proposed_fee,"
        " timezone, booking_source, request_json, created_at, updated_at)"
        " values(:reference, nullif(:owner, 0), nullif(:business, 0), nullif(:notary, 0), :status, "
        ":status_note,"
        " :contact_name, :contact_email, :contact_phone, :client_name, :client_email, :client_phone, :asap,"
        " :retrieval, :document_type, :act_unknown, :act_count, :details, :signers, :witness, :witness_name,"
        " :apostille, :notes, :preferred_date, :preferred_time, :scheduled_date, :scheduled_time, :fee,"
        " :timezone, :source, :request, :now, :now)");
    query.bind("reference", session.referenceId).bind("owner", session.ownerId);
    query.bind("business", session.businessId).bind("notary", session.notaryId);
    query.bind("status", session.status).bind("status_note", session.statusNote);
    query.bind("contact_name", session.contactName).bind("contact_email", session.contactEmail);
    query.bind("contact_phone", session.contactPhone).bind("client_name", session.clientName);
    query.bind("client_email", session.clientEmail).bind("client_phone", session.clientPhone);
    query.bind("asap", session.asap).bind("retrieval", session.retrievalOption);
    query.bind("document_type", session.documentType).bind("act_unknown", session.actUnknown);
    query.bind("act_count", session.actCount).bind("details", session.details);
    query.bind("signers", packed(session.signers)).bind("witness", session.requiresWitness);
    query.bind("witness_name", session.witnessName).bind("apostille", session.needsApostille);
    query.bind("notes", session.notes).bind("preferred_date", session.preferredDate);
    query.bind("preferred_time", session.preferredTime).bind("scheduled_date", session.scheduledDate);
    query.bind("scheduled_time", session.scheduledTime).bind("fee", session.proposedFee);
    query.bind("timezone", session.timezone).bind("source", session.bookingSource);
    query.bind("request", session.requestJson).bind("now", stamp(now));
    query.run();
    session.id = lastId(sql);
    rememberStatus(sql, session, session.ownerId, now);
    return session;
}

static Id notaryOf(soci::session& sql, Id session)
{
    Id notary = 0;
    Query query(sql, "select coalesce(notary_id, 0) from sessions where id = :id");
    query.bind("id", session).into(notary).next();
    return notary;
}

void updateSession(soci::session& sql, const Session& session, Id by, Moment now)
{
    if (notaryOf(sql, session.id) != session.notaryId)
        endAddressesOfSession(sql, session.id);
    Query query(sql,
        "update sessions set notary_id = nullif(:notary, 0), status = :status, status_note = :status_note,"
        " contact_name = :contact_name, contact_email = :contact_email, contact_phone = :contact_phone,"
        " client_name = :client_name, client_email = :client_email, client_phone = :client_phone,"
        " document_type = :document_type, requires_witness = :witness, witness_name = :witness_name,"
        " notes = :notes, scheduled_date = :scheduled_date, scheduled_time = :scheduled_time,"
        " proposed_fee = :fee, updated_at = max(:now, updated_at + 1) where id = :id");
    query.bind("notary", session.notaryId).bind("status", session.status);
    query.bind("status_note", session.statusNote).bind("contact_name", session.contactName);
    query.bind("contact_email", session.contactEmail).bind("contact_phone", session.contactPhone);
    query.bind("client_name", session.clientName).bind("client_email", session.clientEmail);
    query.bind("client_phone", session.clientPhone).bind("document_type", session.documentType);
    query.bind("witness", session.requiresWitness).bind("witness_name", session.witnessName);
    query.bind("notes", session.notes).bind("scheduled_date", session.scheduledDate);
    query.bind("scheduled_time", session.scheduledTime).bind("fee", session.proposedFee);
    query.bind("now", stamp(now)).bind("id", session.id);
    query.run();
    rememberStatus(sql, session, by, now);
}

AcceptResult acceptSession(soci::session& sql, const Account& notary, Id id, Moment now)
{
    Query query(sql, selectSessions + " where s.id = :id");
    query.bind("id", id);
    std::optional<Session> session = fetchOne(query);
    if (!session)
        return AcceptResult::Absent;
    if (session->notaryId == notary.notaryId)
        return AcceptResult::Accepted;
    if (session->notaryId != 0)
        return AcceptResult::Taken;
    if (!isOpenStatus(session->status))
        return AcceptResult::NotOpen;
    session->notaryId = notary.notaryId;
    session->status = "scheduled";
    session->scheduledDate = session->preferredDate;
    session->scheduledTime = session->preferredTime;
    updateSession(sql, *session, notary.id, now);
    return AcceptResult::Accepted;
}

bool deleteSession(soci::session& sql, Id id)
{
    return Query(sql, "delete from sessions where id = :id").bind("id", id).run() > 0;
}

} // namespace bridge
