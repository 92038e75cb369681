#include "Operations/Operations.h"

#include "Answers/AccountAnswers.h"
#include "Http/Problem.h"
#include "Operations/AccountRules.h"
#include "People/Accounts.h"

namespace bridge {

static void updateProfile(Service& service, Call& call)
{
    const Fields fields = call.json();
    Account account = call.account();
    readContact(fields, account);
    call.answer(service.database.write([&](soci::session& sql) {
        updateAccount(sql, account, service.now());
        return profileAnswer(*findAccount(sql, account.id));
    }));
}

static void changePassword(Service& service, Call& call)
{
    const Fields fields = call.json();
    const std::string password = fields.untrimmedText("new_password");
    requireLongEnough(password, "new_password");

    const Id user = call.account().id;
    const std::string current
        = service.database.read([&](soci::session& sql) { return passwordHashOf(sql, user); });
    if (!service.passwords.verify(current, fields.untrimmedText("current_password")))
        throw refusal(422, "The current password is not right.");

    const std::string hash = service.passwords.hash(password);
    service.database.write([&](soci::session& sql) {
        setPasswordHash(sql, user, hash, service.now());
        service.signIns.endAll(sql, user, call.account().signInId);
    });
    call.answer({{"message", "Your password was changed."}});
}

void addProfileOperations(Router& router, Service& service)
{
    router.add("GET", bridgeBase + "/profile", Access::SignedIn,
        [](Call& call) { call.answer(profileAnswer(call.account())); });
    router.add("POST", bridgeBase + "/profile", Access::SignedIn,
        [&service](Call& call) { updateProfile(service, call); });
    router.add("POST", bridgeBase + "/profile/password", Access::SignedIn,
        [&service](Call& call) { changePassword(service, call); });
}

} // namespace bridge
