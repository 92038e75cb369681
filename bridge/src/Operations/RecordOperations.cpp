#include "Operations/Operations.h"

#include "Answers/OfficeAnswers.h"
#include "Answers/SessionAnswers.h"
#include "Http/Problem.h"
#include "People/BusinessClients.h"
#include "Work/Sessions.h"
#include "Work/Uploads.h"
#include "Work/WalkIns.h"

namespace bridge {

// Sessions and walk-in records are numbered apart, so a number alone does not name a record.
static bool namesWalkIn(const Fields& fields)
{
    const std::string type = lowerCased(fields.text("record_type"));
    if (type == "walkin")
        return true;
    if (type == "remote")
        return false;
    if (type.empty() && fields.text("source") == "remote_notary_sessions")
        return false;
    throw refusal(422, "Choose a remote or a walk-in record.");
}

// What the request says, or what is stored already.
static void take(const Fields& data, const std::string& key, std::string& target)
{
    if (data.has(key))
        target = data.text(key);
}

static void list(Service& service, Call& call)
{
    const auto [sessions, walkIns] = service.database.read([&](soci::session& sql) {
        return std::pair(listSessions(sql, call.account(), Scope::All, ""), listWalkIns(sql));
    });
    nlohmann::json records = listOf(sessions, remoteRecordAnswer);
    for (nlohmann::json& record : listOf(walkIns, walkInAnswer))
        records.push_back(std::move(record));
    call.answer({{"records", std::move(records)}});
}

static void saveSession(Service& service, Call& call, const Fields& data)
{
    service.database.write([&](soci::session& sql) {
        Session session = visibleSession(sql, call.account(), call.id());
        take(data, "status", session.status);
        session.status = lowerCased(session.status);
        if (!isStatus(session.status))
            throw invalidField("status", "That status is not known.");
        take(data, "contact_name", session.contactName);
        take(data, "contact_email", session.contactEmail);
        take(data, "contact_phone", session.contactPhone);
        take(data, "document_type", session.documentType);
        take(data, "scheduled_date", session.scheduledDate);
        take(data, "scheduled_time", session.scheduledTime);
        take(data, "notes", session.notes);
        // The contact of a session that a business scheduled is its client.
        if (session.businessId != 0) {
            session.clientName = session.contactName;
            session.clientEmail = session.contactEmail;
            session.clientPhone = session.contactPhone;
        }
        updateSession(sql, session, call.account().id, service.now());
    });
}

static void saveWalkIn(Service& service, Call& call, const Fields& data)
{
    service.database.write([&](soci::session& sql) {
        std::optional<WalkIn> record = findWalkIn(sql, call.id());
        if (!record)
            throw notFound();
        take(data, "status", record->status);
        take(data, "contact_name", record->contactName);
        take(data, "contact_email", record->contactEmail);
        take(data, "contact_phone", record->contactPhone);
        take(data, "document_type", record->documentType);
        take(data, "scheduled_date", record->scheduledDate);
        take(data, "scheduled_time", record->scheduledTime);
        take(data, "notes", record->notes);
        updateWalkIn(sql, *record, service.now());
    });
}

static void save(Service& service, Call& call)
{
    const Fields fields = call.json();
    if (namesWalkIn(fields))
        saveWalkIn(service, call, fields.inner("data"));
    else
        saveSession(service, call, fields.inner("data"));
    call.answer({{"data", {{"id", call.id()}}}, {"message", "Record was updated."}});
}

static void remove(Service& service, Call& call)
{
    const bool isWalkIn = namesWalkIn(call.json());
    const std::vector<Upload> documents = service.database.write([&](soci::session& sql) {
        std::vector<Upload> uploads = isWalkIn ? std::vector<Upload>() : listUploads(sql, call.id());
        if (!(isWalkIn ? deleteWalkIn(sql, call.id()) : deleteSession(sql, call.id())))
            throw notFound();
        return uploads;
    });
    for (const Upload& document : documents) {
        std::error_code ignored;
        std::filesystem::remove(service.uploads / document.path, ignored);
    }
    call.answer({{"message", "Record was deleted."}});
}

static void listClients(Service& service, Call& call)
{
    const std::vector<BusinessClient> clients = service.database.read(
        [&](soci::session& sql) { return listBusinessClients(sql, call.account().businessId); });
    call.answer({{"clients", listOf(clients, businessClientAnswer)}});
}

void addRecordOperations(Router& router, Service& service)
{
    const std::string records = bridgeBase + "/admin/records";
    router.add("GET", records, Access::Admin, [&service](Call& call) { list(service, call); });
    router.add("POST", records + "/{id}", Access::Admin, [&service](Call& call) { save(service, call); });
    router.add("DELETE", records + "/{id}", Access::Admin, [&service](Call& call) { remove(service, call); });
    router.add("GET", bridgeBase + "/business/clients", Access::Business,
        [&service](Call& call) { listClients(service, call); });
}

} // namespace bridge
