#include "Work/WalkIns.h"

#include "Store/Query.h"

#include <nlohmann/json.hpp>

namespace bridge {

static const std::string selectWalkIns
    = "select id, status, contact_name, contact_email, contact_phone, document_type, scheduled_date,"
      " scheduled_time, notes, signer_names, source, created_at, updated_at from walkin_records";

static void fetchEach(Query& query, const RowSink<WalkIn>& take)
{
    WalkIn record;
    std::string signers;
    query.into(record.id).into(record.status).into(record.contactName).into(record.contactEmail);
    query.into(record.contactPhone).into(record.documentType).into(record.scheduledDate);
    query.into(record.scheduledTime).into(record.notes).into(signers).into(record.source);
    query.into(record.createdAt).into(record.updatedAt);
    bool isWanted = true;
    while (isWanted && query.next()) {
        record.signerNames = nlohmann::json::parse(signers).get<std::vector<std::string>>();
        isWanted = take(record);
    }
}

static Query& bindFields(Query& query, const WalkIn& record, Moment now)
{
    query.bind("status", record.status).bind("name", record.contactName).bind("email", record.contactEmail);
    query.bind("phone", record.contactPhone).bind("type", record.documentType);
    query.bind("date", record.scheduledDate).bind("time", record.scheduledTime).bind("notes", record.notes);
    return query.bind("now", stamp(now));
}

void eachWalkIn(soci::session& sql, const RowSink<WalkIn>& take)
{
    Query query(sql, selectWalkIns + " order by id desc");
    fetchEach(query, take);
}

std::optional<WalkIn> findWalkIn(soci::session& sql, Id id)
{
    Query query(sql, selectWalkIns + " where id = :id");
    query.bind("id", id);
    std::optional<WalkIn> found;
    fetchEach(query, [&found](const WalkIn& record) {
        found = record;
        return false;
    });
    return found;
}

Id addWalkIn(soci::session& sql, const WalkIn& record, Moment now)
{
    Query query(sql,
        "insert into walkin_records(status, contact_name, contact_email, contact_phone, document_type,"
        " scheduled_date, scheduled_time, notes, signer_names, source, created_at, updated_at)"
        " values(:status, :name, :email, :phone, :type, :date, :time, :notes, :signers, :source,"
        " :now, :now)");
    bindFields(query, record, now);
    query.bind("signers", nlohmann::json(record.signerNames).dump()).bind("source", record.source).run();
    return lastId(sql);
}

void updateWalkIn(soci::session& sql, const WalkIn& record, Moment now)
{
    Query query(sql,
        "update walkin_records set status = :status, contact_name = :name, contact_email = :email,"
        " contact_phone = :phone, document_type = :type, scheduled_date = :date,"
        " scheduled_time = :time, notes = :notes, updated_at = max(:now, updated_at + 1)"
        " where id = :id");
    bindFields(query, record, now).bind("id", record.id).run();
}

bool deleteWalkIn(soci::session& sql, Id id)
{
    return Query(sql, "delete from walkin_records where id = :id").bind("id", id).run() > 0;
}

} // namespace bridge
