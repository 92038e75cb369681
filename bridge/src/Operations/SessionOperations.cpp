#include "Operations/Operations.h"

#include "Answers/SessionAnswers.h"
#include "Http/Problem.h"
#include "People/BusinessClients.h"
#include "Work/Booking.h"
#include "Work/Messages.h"
#include "Work/Sessions.h"

namespace bridge {

namespace {

// What the query item "scope" asks for, who may ask, and the key under which the list is answered; an empty
// key answers the bare list.
struct ScopeRule
{
    const char* word;
    Scope scope;
    bool (*admits)(const Account&);
    const char* wrapper;
};

const ScopeRule scopeRules[] = {
    {"", Scope::Own, [](const Account&) { return true; }, "sessions"},
    {"business", Scope::Business, [](const Account& account) { return account.isBusiness(); }, "data"},
    {"notary_assigned", Scope::AssignedToNotary, [](const Account& account) { return account.isNotary(); },
        "assignments"},
    {"notary_open", Scope::OpenCalls, [](const Account& account) { return account.isNotary(); },
        "open_calls"},
    {"admin_all", Scope::All, [](const Account& account) { return account.isAdmin(); }, ""},
};

const ScopeRule& scopeRule(const std::string& word)
{
    for (const ScopeRule& rule : scopeRules) {
        if (word == rule.word)
            return rule;
    }
    throw refusal(422, "That scope is not known.");
}

} // namespace

static void list(Service& service, Call& call)
{
    const ScopeRule& rule = scopeRule(call.query("scope"));
    if (!rule.admits(call.account()))
        throw forbidden();
    const std::vector<Session> sessions = service.database.read([&](soci::session& sql) {
        return listSessions(sql, call.account(), rule.scope, lowerCased(call.query("status")));
    });
    nlohmann::json answers = listOf(sessions, sessionAnswer);
    call.answer(*rule.wrapper ? nlohmann::json{{rule.wrapper, std::move(answers)}} : std::move(answers));
}

static void book(Service& service, Call& call)
{
    const std::string text = call.text();
    const Session wanted = readBooking(jsonObject(text), text, call.account());
    const Session session = service.database.write([&](soci::session& sql) {
        if (wanted.businessId != 0)
            rememberBusinessClient(sql, wanted.businessId,
                {0, wanted.clientName, wanted.clientEmail, wanted.clientPhone}, service.now());
        return createSession(sql, wanted, service.now());
    });
    call.answer(createdAnswer(session), 201);
}

static void show(Service& service, Call& call)
{
    const Session session = service.database.read(
        [&](soci::session& sql) { return visibleSession(sql, call.account(), call.id()); });
    call.answer(wrappedSession(session));
}

static void cancel(Service& service, Call& call)
{
    const Session cancelled = service.database.write([&](soci::session& sql) {
        Session session = writableSession(sql, call.account(), call.id());
        if (!mayBeCancelled(session.status))
            throw refusal(409, "This booking can no longer be cancelled.");
        session.status = "cancelled";
        updateSession(sql, session, call.account().id, service.now());
        return session;
    });
    call.answer({{"session", {{"id", cancelled.id}, {"status", cancelled.status}}}});
}

static void showMessages(Service& service, Call& call)
{
    const std::vector<Message> messages = service.database.read([&](soci::session& sql) {
        visibleSession(sql, call.account(), call.id());
        return listMessages(sql, call.id());
    });
    call.answer({{"messages", listOf(messages, messageAnswer)}});
}

static void sendMessage(Service& service, Call& call)
{
    const std::string text = call.json().text("message");
    const Message message = service.database.write([&](soci::session& sql) {
        writableSession(sql, call.account(), call.id());
        if (text.empty())
            throw Problem(422, {{"error", "Write a message first."}});
        return addMessage(sql, call.id(), call.account(), text, service.now());
    });
    call.answer({{"data", messageAnswer(message)}}, 201);
}

void addSessionOperations(Router& router, Service& service)
{
    const std::string sessions = bridgeBase + "/remote-notary/sessions";
    router.add("GET", sessions, Access::SignedIn, [&service](Call& call) { list(service, call); });
    router.add("POST", sessions, Access::SignedIn, [&service](Call& call) { book(service, call); });
    router.add("GET", sessions + "/{id}", Access::SignedIn, [&service](Call& call) { show(service, call); });
    router.add("POST", sessions + "/{id}/cancel", Access::SignedIn,
        [&service](Call& call) { cancel(service, call); });
    router.add("GET", sessions + "/{id}/messages", Access::SignedIn,
        [&service](Call& call) { showMessages(service, call); });
    router.add("POST", sessions + "/{id}/messages", Access::SignedIn,
        [&service](Call& call) { sendMessage(service, call); });
}

} // namespace bridge
