#include "Operations/Operations.h"

#include "Answers/AccountAnswers.h"
#include "Http/Problem.h"
#include "Operations/AccountRules.h"
#include "People/Accounts.h"

namespace bridge {

static void signIn(Service& service, Call& call)
{
    const Fields fields = call.json();
    const std::string email = fields.text("email");
    if (!service.throttle.admit(email, call.peer()))
        throw tooManyAttempts();
    const Problem wrong(400, {{"error", "INVALID_LOGIN_CREDENTIALS"}});

    // Verifying takes long, and the password may be changed meanwhile.
    const Credentials verified
        = service.database.read([&](soci::session& sql) { return findCredentials(sql, email); });
    if (!service.passwords.verify(verified.passwordHash, fields.untrimmedText("password")))
        throw wrong;
    service.throttle.succeeded(email, call.peer());

    call.answer(service.database.write([&](soci::session& sql) {
        const std::optional<Account> account = findAccount(sql, verified.userId);
        if (!account || passwordHashOf(sql, account->id) != verified.passwordHash)
            throw wrong;
        return signInAnswer(*account, service.signIns.begin(sql, account->id));
    }));
}

static void registerClient(Service& service, Call& call)
{
    const Fields fields = call.json();
    const std::string password = fields.untrimmedText("password");
    Account wanted;
    readContact(fields, wanted);
    requireLongEnough(password, "password");
    if (!service.registrations.admit(call.peer()))
        throw tooManyAttempts();

    const NewAccount account{wanted.email, service.passwords.hash(password), wanted.fullName, wanted.phone,
        wanted.city, wanted.state, "client"};
    const nlohmann::json answer = service.database.write([&](soci::session& sql) {
        const std::optional<Id> id = openAccount(sql, account, service.now());
        if (!id)
            throw emailTaken();
        return registrationAnswer(findAccount(sql, *id).value(), service.signIns.begin(sql, *id));
    });
    call.answer(answer, 201);
}

static void renew(Service& service, Call& call)
{
    const std::string key = call.query("key");
    if (key.empty() || (!service.settings.apiKey.empty() && !isSame(key, service.settings.apiKey)))
        throw Problem(400, {{"error", "API_KEY_INVALID"}});
    httplib::Params form;
    httplib::detail::parse_query_text(call.text(), form);
    const auto value = [&form](const char* name) {
        const auto found = form.find(name);
        return found == form.end() ? std::string() : found->second;
    };
    if (value("grant_type") != "refresh_token")
        throw Problem(400, {{"error", "INVALID_GRANT_TYPE"}});

    // A refusal may end a sign-in, which is to last: so it is answered after the transaction.
    const std::optional<nlohmann::json> answer
        = service.database.write([&](soci::session& sql) -> std::optional<nlohmann::json> {
              const auto renewed = service.signIns.renew(sql, value("refresh_token"));
              if (!renewed)
                  return std::nullopt;
              return renewalAnswer(findAccount(sql, renewed->second.userId).value(), renewed->first);
          });
    if (!answer)
        throw Problem(400, {{"error", "INVALID_REFRESH_TOKEN"}});
    call.answer(*answer);
}

Routes authRoutes()
{
    static const Route routes[] = {
        {"POST", bridgeBase + "/auth/password-login", Access::Everybody, signIn},
        {"POST", bridgeBase + "/auth/client-register", Access::Everybody, registerClient},
        {"POST", "/v1/token", Access::Everybody, renew},
    };
    return routes;
}

} // namespace bridge
