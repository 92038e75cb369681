#include "Account/SettingsContentModel.h"

#include "AppError.h"
#include "Launch.h"

#include <algorithm>

using namespace Qt::StringLiterals;

SettingsContentModel::SettingsContentModel(const ScreenContext& context, AppearanceModel& appearanceModel)
    : EditPaneModel(context), appearance(appearanceModel), loads_(epoch())
{
    onUser_ = auth().user.addNotifier([this] {
        if (!isSignedIn())
            disappeared();
    });
    connect(&auth(), &AuthManager::personLeft, this, &SettingsContentModel::forget);
}

QList<AppAppearanceMode> SettingsContentModel::appearanceChoices()
{
    return {AppAppearanceMode::light, AppAppearanceMode::dark, AppAppearanceMode::system};
}

bool SettingsContentModel::hasEdits() const
{
    return std::any_of(
        fields_.begin(), fields_.end(), [](const AnyEditField* field) { return field->isEdited(); });
}

void SettingsContentModel::appeared()
{
    context().launchAtLogin.refresh();
    // Somebody who is signing in just now is left in peace.
    if (isSignedIn())
        launch(loadProfile());
}

void SettingsContentModel::disappeared()
{
    currentPassword = QString();
    newPassword = QString();
}

void SettingsContentModel::forget()
{
    for (AnyEditField* field : std::as_const(fields_))
        field->forget();
    isLoaded_ = false;
    disappeared();
}

QCoro::Task<> SettingsContentModel::loadProfile()
{
    const auto self = keep(this);
    const std::optional<AuthUser> user = signedInUser();
    if (!user)
        co_return;
    const Turn turn = loads_.next();
    const std::optional<AppRole> noHint;
    const APIClient client = api(turn);
    try {
        const JSONObject profile = co_await client.getProfile(user->idToken, noHint);
        if (!turn.isOver())
            fill(profile);
    } catch (const AppError& error) {
        if (!turn.isOver() && isSessionExpired(error))
            auth().signOut();
    }
}

void SettingsContentModel::fill(const JSONObject& profile)
{
    const JSONObject raw = profile.object(u"user"_s).value_or(profile);
    const AuthUser user = auth().user.value().value_or(AuthUser());
    constexpr bool keepsTyped = false;
    name.receive(raw.string(u"full_name"_s, raw.string(u"name"_s, auth().displayName())), keepsTyped);
    email.receive(raw.string(u"email"_s, user.email), keepsTyped);
    phone.receive(raw.string(u"phone"_s), keepsTyped);
    city.receive(raw.string(u"city"_s), keepsTyped);
    state.receive(raw.string(u"state"_s, user.state.value_or(QString())), keepsTyped);
    isLoaded_ = true;
}

QJsonObject SettingsContentModel::profile() const
{
    return {
        {u"full_name"_s, name.value()},
        {u"name"_s, name.value()},
        {u"email"_s, email.value()},
        {u"phone"_s, phone.value()},
        {u"city"_s, city.value()},
        {u"state"_s, state.value()},
    };
}

QCoro::Task<JSONObject> SettingsContentModel::sendProfile(APIClient client, QString idToken)
{
    const auto self = keep(this);
    const quint64 asking = epoch().current();
    const std::optional<AppRole> noHint;
    if (!isLoaded_) {
        const JSONObject missing = co_await client.getProfile(idToken, noHint);
        if (epoch().current() != asking)
            co_return missing;
        fill(missing);
    }
    for (AnyEditField* field : std::as_const(fields_))
        field->markSent();
    const QJsonObject whole = profile();
    const JSONObject answer = co_await client.updateProfile(whole, idToken);
    if (epoch().current() == asking)
        co_await auth().syncProfile(noHint);
    co_return answer;
}

QCoro::Task<> SettingsContentModel::saveProfile()
{
    Change change;
    change.work = Work::profile;
    change.failureTitle = u"Cannot Save Profile"_s;
    change.send
        = [this](const APIClient& client, const QString& token) { return sendProfile(client, token); };
    change.accepted = [this] {
        for (AnyEditField* field : std::as_const(fields_))
            field->markSaved();
        // A load that began earlier knows less.
        loads_.next();
        showAlert(u"Saved"_s, u"Your profile was updated."_s);
    };
    return carryOut(std::move(change));
}

QCoro::Task<> SettingsContentModel::changePassword()
{
    const auto self = keep(this);
    if (!signedInUser() || work.value() != Work::none)
        co_return;
    if (newPassword.value().trimmed().isEmpty()) {
        passwordFault_ = u"Enter a new password."_s;
        showAlert(u"Missing Password"_s, passwordFault_);
        co_return;
    }
    Change change;
    change.work = Work::password;
    change.failureTitle = u"Cannot Change Password"_s;
    change.send = [this](const APIClient& client, const QString& token) {
        return client.changePassword(currentPassword.value(), newPassword.value(), token);
    };
    change.accepted = [this] {
        disappeared();
        showAlert(u"Password Updated"_s, u"Your password was changed."_s);
    };
    co_await carryOut(std::move(change));
}

void SettingsContentModel::setLaunchAtLogin(bool enabled)
{
    if (!context().launchAtLogin.choose(enabled))
        showAlert(u"Startup Setting Not Changed"_s,
            u"macOS did not allow the login item change. Open System Settings > General > Login Items and "
            "enable Quorvel manually."_s);
}

void SettingsContentModel::signOut()
{
    context().leaving.leave([self = keep(this)] { self->auth().leave(); });
}

void SettingsContentModel::contactSupport()
{
    context().systemOpen.composeMail(context().backend.config.supportEmail);
}

void SettingsContentModel::visitWebsite()
{
    context().systemOpen.openWebsite(context().backend.config.websiteURL);
}
