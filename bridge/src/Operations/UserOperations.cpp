#include "Operations/Operations.h"

#include "Answers/AccountAnswers.h"
#include "Answers/SessionAnswers.h"
#include "Http/Problem.h"
#include "Operations/AccountRules.h"
#include "People/Accounts.h"

namespace bridge {

static void list(Service& service, Call& call)
{
    ListText users(service.answers, "users");
    service.read(call, [&users](soci::session& sql, const Account&) {
        eachAccount(sql, [&users](const Account& account) { return users.add(userAnswer(account)); });
    });
    call.answer(std::move(users));
}

static void readRole(const Fields& fields, const Account& admin, Account& account)
{
    const std::string word = lowerCased(fields.text("role"));
    if (!roleOf(word))
        throw invalidField("role", "That role is not known.");
    if (account.id == admin.id && roleOf(word) != Role::Admin)
        throw refusal(409, "You cannot take the admin role from your own account.");
    account.roleWord = word;
}

static void save(Service& service, Call& call)
{
    const Fields fields = call.json();
    if (call.id() == 0)
        throw refusal(422, "Choose an account first.");
    const std::optional<std::string> password = readNewPassword(fields);
    const std::string hash = password ? service.passwords.hash(*password) : std::string();

    call.answer(service.write(call, [&](soci::session& sql, const Account& self) {
        std::optional<Account> account = findAccount(sql, call.id());
        if (!account)
            throw notFound();
        readContact(fields, *account);
        if (fields.has("role"))
            readRole(fields, self, *account);
        if (!updateAccount(sql, *account, service.now()))
            throw emailTaken();
        if (password) {
            const bool isOwn = account->id == self.id;
            setPasswordHash(sql, account->id, hash, service.now());
            service.signIns.endAll(sql, account->id, isOwn ? self.signInId : 0);
        }
        return nlohmann::json{{"user", userAnswer(*findAccount(sql, account->id))}};
    }));
}

static void remove(Service& service, Call& call)
{
    service.write(call, [&call](soci::session& sql, const Account& self) {
        if (call.id() == self.id)
            throw refusal(409, "You cannot delete your own account.");
        if (!findAccount(sql, call.id()))
            throw notFound();
        closeAccount(sql, call.id());
    });
    call.answer({{"message", "Account was deleted."}});
}

Routes userRoutes()
{
    static const Route routes[] = {
        {"GET", bridgeBase + "/admin/users", Access::Admin, list},
        {"POST", bridgeBase + "/admin/users/{id}", Access::Admin, save},
        {"DELETE", bridgeBase + "/admin/users/{id}", Access::Admin, remove},
    };
    return routes;
}

} // namespace bridge
