#include "Operations/Operations.h"

#include "Answers/OfficeAnswers.h"
#include "Answers/SessionAnswers.h"
#include "Http/Problem.h"
#include "Operations/SessionRules.h"
#include "People/BusinessClients.h"
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

static void list(Service& service, Call& call)
{
    ListText records(service.answers, "records");
    service.read(call, [&records](soci::session& sql, const Account& self) {
        eachSession(sql, self, Scope::All, "",
            [&records](const Session& session) { return records.add(remoteRecordAnswer(session)); });
        eachWalkIn(sql, [&records](const WalkIn& record) { return records.add(walkInAnswer(record)); });
    });
    call.answer(std::move(records));
}

static void saveSession(Service& service, Call& call, const Fields& data)
{
    service.write(call, [&](soci::session& sql, const Account& self) {
        Session session = visibleSession(sql, self, call.id());
        data.take({"status"}, session.status);
        session.status = lowerCased(session.status);
        if (!isStatus(session.status))
            throw invalidField("status", "That status is not known.");
        data.take({"contact_name"}, session.contactName);
        data.take({"contact_email"}, session.contactEmail);
        data.take({"contact_phone"}, session.contactPhone);
        data.take({"document_type"}, session.documentType);
        data.take({"scheduled_date"}, session.scheduledDate);
        data.take({"scheduled_time"}, session.scheduledTime);
        data.take({"notes"}, session.notes, Fields::longText);
        // The contact of a session that a business scheduled is its client.
        if (session.businessId != 0) {
            session.clientName = session.contactName;
            session.clientEmail = session.contactEmail;
            session.clientPhone = session.contactPhone;
        }
        updateSession(sql, session, self.id, service.now());
    });
}

static void saveWalkIn(Service& service, Call& call, const Fields& data)
{
    service.write(call, [&](soci::session& sql, const Account&) {
        std::optional<WalkIn> record = findWalkIn(sql, call.id());
        if (!record)
            throw notFound();
        data.take({"status"}, record->status);
        data.take({"contact_name"}, record->contactName);
        data.take({"contact_email"}, record->contactEmail);
        data.take({"contact_phone"}, record->contactPhone);
        data.take({"document_type"}, record->documentType);
        data.take({"scheduled_date"}, record->scheduledDate);
        data.take({"scheduled_time"}, record->scheduledTime);
        data.take({"notes"}, record->notes, Fields::longText);
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
    std::vector<std::string> files;
    service.write(call, [&](soci::session& sql, const Account&) {
        if (!isWalkIn)
            eachUpload(sql, call.id(), [&files](const Upload& upload) {
                files.push_back(upload.path);
                return true;
            });
        if (!(isWalkIn ? deleteWalkIn(sql, call.id()) : deleteSession(sql, call.id())))
            throw notFound();
    });
    for (const std::string& file : files) {
        std::error_code ignored;
        std::filesystem::remove(service.uploads / file, ignored);
    }
    call.answer({{"message", "Record was deleted."}});
}

static void listClients(Service& service, Call& call)
{
    ListText clients(service.answers, "clients");
    service.read(call, [&clients](soci::session& sql, const Account& self) {
        eachBusinessClient(sql, self.businessId,
            [&clients](const BusinessClient& client) { return clients.add(businessClientAnswer(client)); });
    });
    call.answer(std::move(clients));
}

Routes recordRoutes()
{
    static const Route routes[] = {
        {"GET", bridgeBase + "/admin/records", Access::Admin, list},
        {"POST", bridgeBase + "/admin/records/{id}", Access::Admin, save},
        {"DELETE", bridgeBase + "/admin/records/{id}", Access::Admin, remove},
        {"GET", bridgeBase + "/business/clients", Access::Business, listClients},
    };
    return routes;
}

} // namespace bridge
