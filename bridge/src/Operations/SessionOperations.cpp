#include "Operations/Operations.h"

#include "Answers/SessionAnswers.h"
#include "Http/Problem.h"
#include "Operations/Booking.h"
#include "Operations/SessionRules.h"
#include "People/BusinessClients.h"
#include "People/DailyUse.h"
#include "Work/Messages.h"

#include <algorithm>

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

const ScopeRule* findScopeRule(const std::string& word)
{
    const auto* rule = std::find_if(std::begin(scopeRules), std::end(scopeRules),
        [&word](const ScopeRule& one) { return word == one.word; });
    return rule == std::end(scopeRules) ? nullptr : rule;
}

} // namespace

static void list(Service& service, Call& call)
{
    const ScopeRule* rule = findScopeRule(call.query("scope"));
    const std::string status = lowerCased(call.query("status"));
    ListText sessions(service.answers, rule ? rule->wrapper : "");
    service.read(call, [&](soci::session& sql, const Account& self) {
        if (!rule)
            throw refusal(422, "That scope is not known.");
        if (!rule->admits(self))
            throw forbidden();
        eachSession(sql, self, rule->scope, status,
            [&sessions](const Session& session) { return sessions.add(sessionAnswer(session)); });
    });
    call.answer(std::move(sessions));
}

// The request is kept as it came, so its size is bounded as a whole: room for every field at its longest.
static constexpr std::size_t largestBooking = 64 << 10;

static void book(Service& service, Call& call)
{
    const std::string text = call.text(largestBooking);
    const Fields fields = jsonObject(text);
    const Session session = service.write(call, [&](soci::session& sql, const Account& self) {
        const Session wanted = readBooking(fields, cleaned(text), self);
        const Moment now = service.now();
        if (!use(sql, self.id, Use::Bookings, 1, service.settings.daily.bookings, now))
            throw enoughForToday();
        if (wanted.businessId != 0)
            rememberBusinessClient(
                sql, wanted.businessId, {0, wanted.clientName, wanted.clientEmail, wanted.clientPhone}, now);
        return createSession(sql, wanted, now);
    });
    call.answer(createdAnswer(session), 201);
}

static void show(Service& service, Call& call)
{
    call.answer(service.read(call, [&call](soci::session& sql, const Account& self) {
        return wrappedSession(visibleSession(sql, self, call.id()));
    }));
}

static void cancel(Service& service, Call& call)
{
    const Session cancelled = service.write(call, [&](soci::session& sql, const Account& self) {
        Session session = writableSession(sql, self, call.id());
        if (!mayBeCancelled(session.status))
            throw refusal(409, "This booking can no longer be cancelled.");
        session.status = "cancelled";
        updateSession(sql, session, self.id, service.now());
        return session;
    });
    call.answer({{"session", {{"id", cancelled.id}, {"status", cancelled.status}}}});
}

static void showMessages(Service& service, Call& call)
{
    ListText messages(service.answers, "messages");
    service.read(call, [&](soci::session& sql, const Account& self) {
        visibleSession(sql, self, call.id());
        eachMessage(sql, call.id(),
            [&messages](const Message& message) { return messages.add(messageAnswer(message)); });
    });
    call.answer(std::move(messages));
}

static void sendMessage(Service& service, Call& call)
{
    const Fields fields = call.json();
    const Message message = service.write(call, [&](soci::session& sql, const Account& self) {
        writableSession(sql, self, call.id());
        const std::string text = fields.text("message", Fields::longText);
        if (text.empty())
            throw Problem(422, {{"error", "Write a message first."}});
        const Moment now = service.now();
        if (!use(sql, self.id, Use::Messages, 1, service.settings.daily.messages, now))
            throw enoughForToday();
        return addMessage(sql, call.id(), self, text, now);
    });
    call.answer({{"data", messageAnswer(message)}}, 201);
}

static const std::string sessions = bridgeBase + "/remote-notary/sessions";

Routes sessionRoutes()
{
    static const Route routes[] = {
        {"GET", sessions, Access::SignedIn, list},
        {"POST", sessions, Access::SignedIn, book},
        {"GET", sessions + "/{id}", Access::SignedIn, show},
        {"POST", sessions + "/{id}/cancel", Access::SignedIn, cancel},
        {"GET", sessions + "/{id}/messages", Access::SignedIn, showMessages},
        {"POST", sessions + "/{id}/messages", Access::SignedIn, sendMessage},
    };
    return routes;
}

} // namespace bridge
