#include "AuthManager.h"

#include "AppError.h"
#include "Launch.h"

#include <QPointer>
#include <QScopeGuard>

using namespace Qt::StringLiterals;

const QString AuthManager::userDefaultsKey = u"QuorvelMac.authUser"_s;
const QString AuthManager::activeRoleKey = u"QuorvelMac.activeRole"_s;

AuthManager::AuthManager(const Backend& backend, UserDefaults& defaults, SleepProofClock& clock)
    : backend_(backend), defaults_(defaults), schedule_(clock)
{
    restore();
    connect(&schedule_, &RenewalSchedule::due, this, [this] { launch(renew(Manner::gentle)); });
    connect(&backend_.tokens, &TokenGate::approached, this, [this] {
        if (schedule_.hasTokenEnded())
            launch(renew(Manner::gentle));
    });
    connect(&backend_.notifications, &NotificationCenter::posted, this, [this](const QString& name) {
        if (name == u"QuorvelMac.appSessionExpired")
            signOut();
    });
}

AuthManager::~AuthManager()
{
    // Nobody waits for a renewal that nobody will finish.
    backend_.tokens.open();
}

void AuthManager::restore()
{
    const std::optional<QByteArray> stored = defaults_.data(userDefaultsKey);
    if (!stored)
        return;
    const std::optional<AuthUser> restored = AuthUser::decode(*stored);
    if (!restored)
        return;
    activeRole = storedRole(*restored).value_or(defaultRole(*restored));
    user = restored;
}

/// The role chosen earlier, when the user may use it.
std::optional<AppRole> AuthManager::storedRole(const AuthUser& of) const
{
    const std::optional<AppRole> role = appRole(defaults_.string(activeRoleKey).value_or(QString()));
    return role && availableRoles(of).contains(*role) ? role : std::nullopt;
}

QString AuthManager::displayName() const
{
    const std::optional<AuthUser> now = user.value();
    return now ? now->displayName.value_or(QString()) : QString();
}

AppRole AuthManager::role() const
{
    const std::optional<AuthUser> now = user.value();
    if (!now)
        return AppRole::client;
    return availableRoles(*now).contains(activeRole.value()) ? activeRole.value() : defaultRole(*now);
}

QList<AppRole> AuthManager::availableRoles() const
{
    const std::optional<AuthUser> now = user.value();
    return now ? availableRoles(*now) : QList<AppRole>{AppRole::client};
}

QList<AppRole> AuthManager::availableRoles(const AuthUser& user)
{
    static const QStringList businessWords{
        u"business"_s, u"business_scheduler"_s, u"title_agency"_s, u"law_firm"_s};
    static const QStringList notaryWords{
        u"notary"_s, u"remote_notary"_s, u"remote_notary_provider"_s, u"signing_agent"_s};
    static const QStringList adminWords{u"admin"_s, u"super_admin"_s, u"administrator"_s, u"staff"_s};

    const QString word = user.role.value_or(QString()).toLower();
    QList<AppRole> roles{AppRole::client};
    if (user.isBusiness.value_or(false) || businessWords.contains(word))
        roles += AppRole::business;
    if (user.isNotary.value_or(false) || notaryWords.contains(word))
        roles += AppRole::notary;
    if (user.isAdmin.value_or(false) || adminWords.contains(word))
        roles += AppRole::admin;
    return roles;
}

AppRole AuthManager::defaultRole(const AuthUser& user)
{
    // The roles come in the order of their privileges.
    return availableRoles(user).constLast();
}

void AuthManager::switchRole(AppRole role)
{
    if (!availableRoles().contains(role))
        return;
    activeRole = role;
    defaults_.setString(activeRoleKey, rawValue(role));
}

namespace {

/// Lets observers hear of several properties only when all of them are set.
class Together
{
public:
    Together() { Qt::beginPropertyUpdateGroup(); }
    ~Together() { Qt::endPropertyUpdateGroup(); }
    Q_DISABLE_COPY_MOVE(Together)
};

bool isSamePerson(const AuthUser& a, const AuthUser& b)
{
    if (!a.localId.isEmpty() && !b.localId.isEmpty())
        return a.localId == b.localId;
    return !a.email.isEmpty() && a.email.compare(b.email, Qt::CaseInsensitive) == 0;
}

} // namespace

void AuthManager::store(const AuthUser& stored)
{
    const Together together;
    user = stored;
    if (const std::optional<AppRole> role = storedRole(stored)) {
        activeRole = *role;
    } else {
        activeRole = defaultRole(stored);
        defaults_.setString(activeRoleKey, rawValue(activeRole.value()));
    }
    // On disk before anybody hears of it: a token that was given in exchange for another is the only good
    // one.
    defaults_.setData(userDefaultsKey, stored.encoded());
}

void AuthManager::signInFrom(const JSONObject& response, const QString& emailFallback)
{
    const AuthUser fresh
        = merge(authUserFromBridgeResponse(response, emailFallback), profileFromBridgeResponse(response));
    const std::optional<AuthUser> before = user.value() ? user.value() : interrupted_;
    const bool isReturn = before && isSamePerson(*before, fresh);
    if (!isReturn)
        emit personLeft();
    else if (resumesRole_ && availableRoles(fresh).contains(interruptedRole_))
        defaults_.setString(activeRoleKey, rawValue(interruptedRole_));
    interrupted_.reset();
    resumesRole_ = false;
    backend_.epoch.advance();
    backend_.tokens.forget();
    store(fresh);
    schedule_.begin(tokenLifetime(response.object(u"firebase"_s).value_or(response)));
}

QCoro::Task<> AuthManager::signIn(QString email, QString password, std::optional<AppRole> roleHint)
{
    const QPointer<AuthManager> self(this);
    isBusy = true;
    const auto idle = qScopeGuard([self] {
        if (self)
            self->isBusy = false;
    });
    const APIClient api(backend_);
    const JSONObject response = co_await api.passwordLogin(email, password, roleHint);
    if (self)
        signInFrom(response, email.trimmed());
}

QCoro::Task<> AuthManager::registerClient(ClientRegistration registration)
{
    const QPointer<AuthManager> self(this);
    isBusy = true;
    const auto idle = qScopeGuard([self] {
        if (self)
            self->isBusy = false;
    });
    const APIClient api(backend_);
    const JSONObject response = co_await api.registerClient(registration);
    if (self)
        signInFrom(response, registration.email.trimmed());
}

QCoro::Task<> AuthManager::syncProfile(std::optional<AppRole> roleHint)
{
    const QPointer<AuthManager> self(this);
    const std::optional<AuthUser> asking = user.value();
    if (!asking)
        co_return;
    const quint64 epoch = backend_.epoch.current();
    const APIClient api(backend_);
    const JSONObject profile = co_await api.getProfile(asking->idToken, roleHint);
    if (!self || backend_.epoch.current() != epoch)
        co_return;
    // The user as they are now: a renewal may have brought new tokens meanwhile.
    if (const std::optional<AuthUser> now = user.value())
        store(merge(*now, profile));
}

void AuthManager::signOut()
{
    if (const std::optional<AuthUser> leaving = user.value()) {
        interrupted_ = leaving;
        interruptedRole_ = role();
    }
    end();
}

void AuthManager::leave()
{
    interrupted_.reset();
    resumesRole_ = false;
    emit personLeft();
    end();
}

void AuthManager::end()
{
    backend_.epoch.advance();
    backend_.tokens.forget();
    schedule_.end();
    defaults_.remove(userDefaultsKey);
    defaults_.remove(activeRoleKey);
    const Together together;
    user = std::nullopt;
    activeRole = AppRole::client;
}
