#include "Operations/Operations.h"

#include "Answers/OfficeAnswers.h"
#include "Answers/SessionAnswers.h"
#include "Http/Problem.h"
#include "Operations/AccountRules.h"
#include "People/Accounts.h"
#include "People/Notaries.h"
#include "Work/Uploads.h"

namespace bridge {

static void list(Service& service, Call& call)
{
    ListText notaries(service.answers, "notaries");
    service.read(call, [&notaries](soci::session& sql, const Account&) {
        eachNotary(sql, [&notaries](const Notary& notary) { return notaries.add(notaryAnswer(notary)); });
    });
    call.answer(std::move(notaries));
}

static void readNotary(const Fields& fields, Notary& notary)
{
    fields.take({"name", "full_name"}, notary.name);
    fields.take({"email"}, notary.email);
    fields.take({"phone"}, notary.phone);
    fields.take({"notarial_state", "state"}, notary.state);
    fields.take({"county"}, notary.county);
    fields.take({"commission_number"}, notary.commissionNumber);
    fields.take({"commission_expiration_date"}, notary.commissionExpiration);
    fields.take({"billing_status"}, notary.billingStatus);
    if (fields.has("active"))
        notary.isActive = fields.flag("active");
    if (notary.name.empty())
        throw Problem(422, {{"error", "Enter the notary's name."}});
    if (!isEmailAddress(notary.email))
        throw Problem(422, {{"error", "Enter a valid email address."}});
}

// A profile without an account gets one with its first password.
static void setPassword(
    Service& service, soci::session& sql, const Notary& notary, const std::string& hash, const Account& self)
{
    if (notary.userId == 0) {
        const NewAccount account{notary.email, hash, notary.name, notary.phone, "", notary.state, "client"};
        const std::optional<Id> user = openAccount(sql, account, service.now());
        if (!user)
            throw emailTaken();
        linkNotary(sql, notary.id, *user);
        Account linked = findAccount(sql, *user).value();
        linked.roleWord = "notary";
        if (!updateAccount(sql, linked, service.now()))
            throw emailTaken();
        return;
    }
    const bool isOwn = notary.userId == self.id;
    setPasswordHash(sql, notary.userId, hash, service.now());
    service.signIns.endAll(sql, notary.userId, isOwn ? self.signInId : 0);
}

static void save(Service& service, Call& call)
{
    const Fields fields = call.json();
    if (call.id() == 0)
        throw refusal(422, "Choose a notary first.");
    const std::optional<std::string> password = readNewPassword(fields);
    const std::string hash = password ? service.passwords.hash(*password) : std::string();

    call.answer(service.write(call, [&](soci::session& sql, const Account& self) {
        std::optional<Notary> notary = findNotary(sql, call.id());
        if (!notary)
            throw notFound();
        readNotary(fields, *notary);
        if (!updateNotary(sql, *notary, service.now()))
            throw emailTaken();
        if (password)
            setPassword(service, sql, *notary, hash, self);
        return nlohmann::json{{"data", notaryAnswer(*findNotary(sql, call.id()))}};
    }));
}

static void remove(Service& service, Call& call)
{
    service.write(call, [&call](soci::session& sql, const Account&) {
        if (!findNotary(sql, call.id()))
            throw notFound();
        endAddressesOfNotary(sql, call.id());
        deleteNotary(sql, call.id());
    });
    call.answerNothing();
}

Routes notaryRoutes()
{
    static const Route routes[] = {
        {"GET", bridgeBase + "/admin/notaries", Access::Admin, list},
        {"POST", bridgeBase + "/admin/notaries/{id}", Access::Admin, save},
        {"DELETE", bridgeBase + "/admin/notaries/{id}", Access::Admin, remove},
    };
    return routes;
}

} // namespace bridge
