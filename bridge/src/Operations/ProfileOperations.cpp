#include "Operations/Operations.h"

#include "Answers/AccountAnswers.h"
#include "Http/Problem.h"
#include "Operations/AccountRules.h"
#include "People/Accounts.h"

namespace bridge {

static void showProfile(Service& service, Call& call)
{
    call.answer(service.read(call, [](soci::session&, const Account& self) { return profileAnswer(self); }));
}

static void updateProfile(Service& service, Call& call)
{
    const Fields fields = call.json();
    call.answer(service.write(call, [&](soci::session& sql, const Account& self) {
        Account account = self;
        readContact(fields, account);
        if (!updateAccount(sql, account, service.now()))
            throw emailTaken();
        return profileAnswer(*findAccount(sql, account.id));
    }));
}

static void changePassword(Service& service, Call& call)
{
    const Fields fields = call.json();
    const std::string password = fields.untrimmedText("new_password");
    requireLongEnough(password, "new_password");
    const Problem wrong = refusal(422, "The current password is not right.");

    // Hashing takes long, and nothing else may wait for it; so what was verified is compared again in the
    // end.
    const auto [user, verified] = service.read(call, [](soci::session& sql, const Account& self) {
        return std::pair(self.id, passwordHashOf(sql, self.id));
    });
    if (!service.throttle.admit(user, call.peer()))
        throw tooManyAttempts();
    if (!service.passwords.verify(verified, fields.untrimmedText("current_password")))
        throw wrong;
    service.throttle.succeeded(user, call.peer());

    const std::string hash = service.passwords.hash(password);
    service.write(call, [&, &verified = verified](soci::session& sql, const Account& self) {
        if (passwordHashOf(sql, self.id) != verified)
            throw wrong;
        setPasswordHash(sql, self.id, hash, service.now());
        service.signIns.endAll(sql, self.id, self.signInId);
    });
    call.answer({{"message", "Your password was changed."}});
}

Routes profileRoutes()
{
    static const Route routes[] = {
        {"GET", bridgeBase + "/profile", Access::SignedIn, showProfile},
        {"POST", bridgeBase + "/profile", Access::SignedIn, updateProfile},
        {"POST", bridgeBase + "/profile/password", Access::SignedIn, changePassword},
    };
    return routes;
}

} // namespace bridge
