#include "WholeWindowTest.h"

#include "Lists/RowListView.h"

using namespace Qt::StringLiterals;

namespace {

const QByteArray sessions = R"([
    {"id": 1, "signer_names": ["Priya Raman", "Tomas Alder"], "scheduled_date": "2026-03-12",
     "scheduled_time": "2:30 PM", "status": "scheduled", "document_type": "Power of Attorney"},
    {"id": 2, "signer_names": ["Grace Obi"], "scheduled_date": "2026-03-12",
     "scheduled_time": "11:00 AM", "status": "requested", "document_type": "Jurat / Affidavit"},
    {"id": 3, "signer_names": ["Oscar Lindqvist", "Noor Haddad", "Ines Duarte"],
     "scheduled_date": "2026-03-11", "scheduled_time": "9:30 AM", "status": "scheduled",
     "document_type": "Settlement / Litigation Document"},
    {"id": 4, "signer_name": "Helen Brandt", "scheduled_date": "2026-03-11",
     "scheduled_time": "4:15 PM", "status": "rescheduled", "document_type": "Loan / Closing Document"},
    {"id": 5, "signer_name": "Daniel Reyes", "scheduled_date": "2026-03-10", "scheduled_time": "3:00 PM",
     "status": "completed", "document_type": "Passport / Travel Consent"},
    {"id": 6, "signer_name": "Marta Kowal", "scheduled_date": "2026-03-09", "scheduled_time": "1:45 PM",
     "status": "cancelled", "document_type": "Acknowledgment"},
    {"id": 7, "signer_name": "Samuel Adeyemi", "scheduled_date": "2026-03-08", "scheduled_time": "10:00 AM",
     "status": "completed", "document_type": "Translation Affidavit"}])";

const QByteArray openCalls = R"([
    {"id": 8, "signer_name": "Grace Obi", "preferred_date": "2026-03-12", "preferred_time": "11:00 AM",
     "document_type": "Jurat / Affidavit"},
    {"id": 9, "signer_name": "Nadia Petrov", "preferred_date": "2026-03-13", "preferred_time": "9:15 AM",
     "document_type": "Acknowledgment"},
    {"id": 10, "client_name": "Ivo Marsh"}])";

const QByteArray session = R"({"session": {"id": 1, "reference_id": "RN-20260309-0131",
    "status": "scheduled", "scheduled_date": "2026-03-12", "scheduled_time": "2:30 PM",
    "signer_names": ["Priya Raman", "Tomas Alder"], "document_type": "Power of Attorney",
    "client_name": "Priya Raman", "client_email": "priya.raman@example.com", "proposed_fee": "41.00",
    "status_note": "Both signers confirmed by phone.", "assigned_notary_id": 2,
    "assigned_notary_name": "Noor Haddad", "requires_witness": true,
    "witness_name": "Elena Voss, joins on her own link"}})";

const QByteArray messages = R"([
    {"id": 1, "sender_type": "client", "sender_name": "Priya Raman", "created_at": "2026-03-10 09:42:10",
     "message": "Could my brother sign from the same room, or does he need his own computer?"},
    {"id": 2, "sender_type": "notary", "sender_name": "Maya Whitfield", "created_at": "2026-03-10 09:58:31",
     "message": "The same room is fine. Each of you needs a government ID at hand."},
    {"id": 3, "sender_type": "admin", "sender_name": "Quorvel", "created_at": "2026-03-11 08:15:02",
     "message": "Your session is confirmed for 2:30 PM."}])";

const QByteArray documents = R"([
    {"id": 1, "document_name": "Power of attorney", "original_filename": "power-of-attorney.pdf",
     "file_size": 2400000, "created_at": "2026-03-09 10:05:22", "uploaded_by_name": "Priya Raman",
     "pdf_url": "https://notary.example/1"},
    {"id": 2, "document_name": "Passport", "original_filename": "raman_passport.jpg", "file_size": 1100000,
     "created_at": "2026-03-09 10:07:48", "uploaded_by_name": "Priya Raman",
     "pdf_url": "https://notary.example/2"}])";

const QByteArray clients = R"([
    {"name": "Priya Raman", "email": "priya.raman@example.com"},
    {"name": "Helen Brandt", "email": "helen.brandt@example.com"},
    {"name": "Oscar Lindqvist", "email": "oscar.lindqvist@example.org"},
    {"name": "Grace Obi", "email": "grace.obi@example.com"},
    {"name": "Daniel Reyes", "email": "daniel.reyes@example.net"},
    {"name": "Marta Kowal", "email": "marta.kowal@example.org"}])";

const QByteArray records = R"([
    {"id": 1, "record_type": "walkin", "signer_names": ["Bernard Cole"], "scheduled_date": "2026-03-12",
     "scheduled_time": "1:05 PM", "document_type": "Acknowledgment"},
    {"id": 2, "status": "scheduled", "signer_names": ["Priya Raman", "Tomas Alder"],
     "scheduled_date": "2026-03-12", "scheduled_time": "2:30 PM", "document_type": "Power of Attorney",
     "contact_name": "Priya Raman", "contact_email": "priya.raman@example.com",
     "contact_phone": "(555) 010-0117", "notes": "Both signers confirmed by phone."},
    {"id": 3, "signer_name": "Grace Obi", "scheduled_date": "2026-03-12", "scheduled_time": "11:00 AM",
     "status": "requested", "document_type": "Jurat / Affidavit"},
    {"id": 4, "type": "walkin", "name": "Yara Molina", "preferred_date": "2026-03-11",
     "preferred_time": "4:40 PM", "document_types": "Passport / Travel Consent"},
    {"id": 5, "status": "rescheduled", "signer_name": "Helen Brandt", "scheduled_date": "2026-03-11",
     "scheduled_time": "4:15 PM", "document_type": "Loan / Closing Document"}])";

const QByteArray users = R"([
    {"id": 1, "full_name": "Maya Whitfield", "email": "maya.whitfield@example.com", "role": "admin"},
    {"id": 2, "full_name": "Priya Raman", "email": "priya.raman@example.com", "role": "client"},
    {"id": 3, "full_name": "Harbor Title Group", "email": "desk@harbor.example.org",
     "phone": "(555) 010-0188", "role": "title_agency"},
    {"id": 4, "email": "grace.obi@example.com"}])";

const QByteArray notaries = R"([
    {"id": 1, "name": "Maya Whitfield", "county": "Kings", "state": "New York", "active": true},
    {"id": 2, "name": "Noor Haddad", "email": "noor.haddad@example.com", "phone": "(555) 010-0125",
     "county": "Queens", "state": "New York", "billing_status": "active", "active": true,
     "commission_number": "01HA6312877", "commission_expiration_date": "2028-09-30"},
    {"id": 3, "name": "Lena Fischer", "county": "Erie", "state": "New York", "billing_status": "trial",
     "active": true},
    {"id": 4, "name": "Jonah Marsh", "county": "Suffolk", "state": "New York", "active": false}])";

/// What a request is answered with that begins so; the first that fits counts.
const std::pair<QString, QByteArray> answers[] = {
    {u"GET /remote-notary/sessions?scope=notary_open"_s, openCalls},
    {u"GET /remote-notary/sessions/?"_s, sessions},
    {u"GET /remote-notary/sessions?"_s, sessions},
    {u"GET /remote-notary/sessions/1/messages"_s, messages},
    {u"GET /remote-notary/sessions/1/documents"_s, documents},
    {u"GET /remote-notary/sessions/1"_s, session},
    {u"GET /remote-notary/sessions"_s, sessions},
    {u"GET /business/clients"_s, clients},
    {u"GET /admin/records"_s, records},
    {u"GET /admin/users"_s, users},
    {u"GET /admin/notaries"_s, notaries},
};

QByteArray answerTo(const QString& line)
{
    for (const auto& [beginning, answer] : answers) {
        if (line.startsWith(beginning))
            return answer;
    }
    return "{}";
}

AuthUser holder(AppRole role)
{
    if (role == AppRole::client)
        return account(u"Priya Raman"_s);
    return account(role == AppRole::business ? u"Harbor Title Group"_s : u"Maya Whitfield"_s, {role});
}

} // namespace

const std::vector<Scene>& allScenes()
{
    using enum AppRole;
    static const std::vector<Scene> scenes{
        {"HomeSignedOut", std::nullopt, AppSection::dashboard},
        {"SettingsSignedOut", std::nullopt, AppSection::settings},
        {"SignIn", std::nullopt, AppSection::book},
        {"Home", client, AppSection::dashboard},
        {"Settings", admin, AppSection::settings},
        {"Booking", client, AppSection::book},
        {"Sessions", client, AppSection::sessions},
        {"SessionOfClient", client, AppSection::sessions, 0},
        {"SessionOfNotary", notary, AppSection::sessions, 0},
        {"SessionOfAdmin", admin, AppSection::sessions, 0},
        {"BusinessDashboard", business, AppSection::businessDashboard},
        {"NotaryDashboard", notary, AppSection::notaryDashboard},
        {"AdminDashboard", admin, AppSection::adminDashboard},
        {"Records", admin, AppSection::adminRecords},
        {"Record", admin, AppSection::adminRecords, 1},
        {"Users", admin, AppSection::adminUsers},
        {"User", admin, AppSection::adminUsers, 2},
        {"Notaries", admin, AppSection::adminNotaries},
        {"Notary", admin, AppSection::adminNotaries, 1},
        {"Restricted", client, AppSection::adminUsers},
    };
    return scenes;
}

std::ostream& operator<<(std::ostream& out, const Scene& scene)
{
    return out << scene.name;
}

void WholeWindowTest::open(const Scene& scene, QSize size)
{
    window = std::make_unique<MainWindow>(model, appearance);
    window->resize(size);
    show(*window);
    if (scene.role)
        signIn(holder(*scene.role), *scene.role);
    router.open(scene.section);
    settle();
    answerEverything();
    if (scene.row >= 0)
        selectRow(scene.row);
}

void WholeWindowTest::answerEverything()
{
    for (QList<qsizetype> waiting = webSession->pending(); !waiting.isEmpty();
         waiting = webSession->pending()) {
        const qsizetype number = waiting.constFirst();
        answer(number, answerTo(line(number)));
    }
}

void WholeWindowTest::selectRow(int row)
{
    auto* list = window->findChild<RowListView*>();
    ASSERT_NE(list, nullptr);
    QTest::mouseClick(
        list->viewport(), Qt::LeftButton, {}, list->visualRect(list->model()->index(row, 0)).center());
    settle();
    answerEverything();
}
