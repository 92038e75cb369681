#include "Demo/DemoData.h"

#include "Demo/Bookings.h"
#include "Demo/People.h"
#include "Demo/SamplePdf.h"
#include "People/Accounts.h"
#include "People/BusinessClients.h"
#include "People/Notaries.h"
#include "Store/Query.h"
#include "Text.h"
#include "Work/Messages.h"
#include "Work/Sessions.h"
#include "Work/UploadStore.h"
#include "Work/Uploads.h"
#include "Work/WalkIns.h"

#include <algorithm>
#include <sstream>
#include <stdexcept>

namespace bridge {

using std::chrono::days;

static std::vector<std::string> split(const std::string& list)
{
    std::vector<std::string> names;
    std::istringstream stream(list);
    for (std::string name; std::getline(stream, name, ',');)
        names.push_back(trimmed(name));
    return names;
}

// "noor.haddad@example.com" for "Noor Haddad".
static std::string emailOf(std::string name)
{
    std::replace(name.begin(), name.end(), ' ', '.');
    return lowerCased(name) + "@example.com";
}

static void addPeople(soci::session& sql, const std::string& hash, Moment now)
{
    for (const DemoPerson& person : demoPeople()) {
        const Id id = openAccount(
            sql, {person.email, hash, person.name, person.phone, person.city, person.state, person.role}, now)
                          .value();
        if (*person.business)
            Query(sql,
                "update businesses set company_name = :name where id = (select business_id from users where "
                "id = :id)")
                .bind("name", person.business)
                .bind("id", id)
                .run();
        if (*person.county) {
            // An admin becomes a notary by a profile, everybody else has one by the role.
            if (findAccount(sql, id)->notaryId == 0) {
                Query(sql,
                    "insert into notaries(user_id, name, email, created_at, updated_at)"
                    " values(:id, :name, :email, :now, :now)")
                    .bind("id", id)
                    .bind("name", person.name)
                    .bind("email", person.email)
                    .bind("now", stamp(now))
                    .run();
            }
            Notary profile = *findNotary(sql, findAccount(sql, id)->notaryId);
            profile.state = person.state;
            profile.county = person.county;
            profile.commissionNumber = person.commission;
            profile.commissionExpiration = newYorkDate(now + days(400 + 40 * id));
            if (!updateNotary(sql, profile, now))
                throw std::logic_error("two people of the demo have one address");
        }
    }
    Query(sql,
        "insert into notaries(name, email, state, county, billing_status, active, created_at, updated_at)"
        " values('Ruth Delgado', 'ruth.delgado@example.com', 'NY', 'Erie', 'paused', 0, :now, :now)")
        .bind("now", stamp(now))
        .run();
}

static Session sessionOf(const DemoBooking& booking, const Account& owner, const Account& notary, Moment now)
{
    Session session;
    session.ownerId = owner.id;
    session.notaryId = notary.notaryId;
    session.status = booking.status;
    session.statusNote = booking.note;
    session.contactName = owner.fullName;
    session.contactEmail = owner.email;
    session.contactPhone = owner.phone;
    if (*booking.client) {
        session.businessId = owner.businessId;
        session.contactName = session.clientName = booking.client;
        session.contactEmail = session.clientEmail = emailOf(booking.client);
        session.contactPhone = session.clientPhone = "";
    }
    session.asap = !*booking.time;
    session.retrievalOption = booking.acts > 2 ? "priority" : "no_rush";
    session.documentType = booking.documentType;
    session.actCount = booking.acts;
    session.details = booking.details;
    for (const std::string& name : split(booking.signers))
        session.signers.push_back(
            {name, emailOf(name), "", "NY Driver License", newYorkDate(now + days(900))});
    session.requiresWitness = booking.acts > 4;
    session.witnessName = session.requiresWitness ? "Provided by the office" : "";
    session.needsApostille = booking.acts == 3;
    if (!session.asap) {
        session.preferredDate = newYorkDate(now + days(booking.preferredDay));
        session.preferredTime = booking.time;
    }
    if (notary.id != 0 && session.status != "requested" && session.status != "pending") {
        session.scheduledDate = session.preferredDate;
        session.scheduledTime = session.preferredTime;
    }
    session.proposedFee = booking.fee;
    session.timezone = "America/New_York";
    session.bookingSource = "demo";
    session.requestJson = "{}";
    return session;
}

static void addDocument(Service& service, soci::session& sql, const Session& session, const Account& by,
    const std::string& name, Moment moment)
{
    const bool isPdf = name.find(".pdf") != std::string::npos;
    const std::string content
        = isPdf ? samplePdf(session.documentType + " for " + session.contactName) : "A scan would be here.\n";
    IncomingFile file(service.uploads);
    file.write(content.data(), content.size());
    Upload upload;
    upload.sessionId = session.id;
    upload.userId = by.id;
    upload.uploadedBy = by.fullName;
    upload.originalName = name;
    upload.path = file.keep();
    upload.byteSize = static_cast<long long>(file.size());
    upload.sha256 = file.sha256();
    upload.mimeType = isPdf ? "application/pdf" : "text/plain";
    upload.label = isPdf ? session.documentType : "Passport scan";
    upload.category = isPdf ? "notarized_document" : "government_id";
    upload.downloadKey = newDownloadKey();
    upload.createdAt = stamp(moment);
    addUpload(sql, upload);
}

static void addBooking(Service& service, soci::session& sql, const DemoBooking& booking, Moment now)
{
    const Account owner = *findAccount(sql, booking.owner);
    const Account notary = findAccount(sql, booking.notary).value_or(Account());
    // The newest bookings are some minutes old, the others days.
    const Moment booked = now + days(booking.bookedDay) - std::chrono::minutes(90);
    const Session session = createSession(sql, sessionOf(booking, owner, notary, now), booked);
    if (*booking.client)
        rememberBusinessClient(
            sql, owner.businessId, {0, session.clientName, session.clientEmail, session.clientPhone}, booked);
    if (*booking.messageOfOwner)
        addMessage(sql, session.id, owner, booking.messageOfOwner, booked + std::chrono::minutes(20));
    if (*booking.messageOfNotary)
        addMessage(sql, session.id, notary, booking.messageOfNotary, booked + std::chrono::minutes(45));
    if (*booking.document)
        addDocument(service, sql, session, owner, booking.document, booked + std::chrono::minutes(5));
}

static void addWalkIns(soci::session& sql, Moment now)
{
    for (const DemoWalkIn& record : demoWalkIns()) {
        const Moment moment = now + days(record.day);
        addWalkIn(sql,
            {0, record.status, record.name, record.email, record.phone, record.documentType,
                newYorkDate(moment), record.time, record.notes, split(record.signers), record.source},
            moment);
    }
}

// Sessions to measure with: all alike, a quarter of an hour apart, in every status but those of open calls.
static void addMany(soci::session& sql, int count, Moment now)
{
    const std::vector<DemoBooking>& patterns = demoBookings();
    const Account owner = *findAccount(sql, 1);
    const Account notary = *findAccount(sql, 3);
    for (int i = 0; i < count; ++i) {
        DemoBooking pattern = patterns[static_cast<std::size_t>(i) % 21];
        pattern.client = "";
        const Moment booked = now - std::chrono::minutes(15) * (count - i) - days(60);
        createSession(sql, sessionOf(pattern, owner, notary, now), booked);
    }
}

void fillWithDemoData(Service& service)
{
    const std::string hash = service.passwords.hash(demoPassword);
    const Moment now = service.now();
    service.database.write([&](soci::session& sql) {
        if (hasAccounts(sql))
            return;
        addPeople(sql, hash, now);
        addMany(sql, service.settings.demoSessions, now);
        for (const DemoBooking& booking : demoBookings())
            addBooking(service, sql, booking, now);
        addWalkIns(sql, now);
    });
}

std::string demoAccountList()
{
    std::ostringstream text;
    text << "Demo accounts, all with the password " << demoPassword << ":\n";
    for (const DemoPerson& person : demoPeople())
        text << "  " << person.email << "  " << person.role
             << (*person.county && person.role == std::string("admin") ? ", notary" : "") << '\n';
    return text.str();
}

} // namespace bridge
