#pragma once

#include "Screen/EditField.h"
#include "Screen/EditPaneModel.h"
#include "Shell/AppearanceModel.h"

/// The person's settings: who they are, their password, how the program looks, and whether it starts with the
/// desktop. Nothing here is trimmed; what is sent is what stands in the fields.
class SettingsContentModel : public EditPaneModel
{
    Q_OBJECT

public:
    SettingsContentModel(const ScreenContext& context, AppearanceModel& appearanceModel);

private:
    QList<AnyEditField*> fields_;

public:
    // The profile. What is being edited is not touched by a load.
    EditField<QString> name{fields_};
    EditField<QString> email{fields_};
    EditField<QString> phone{fields_};
    EditField<QString> city{fields_};
    EditField<QString> state{fields_};

    QProperty<QString> currentPassword;
    QProperty<QString> newPassword;

    AppearanceModel& appearance;

    bool isSignedIn() const { return context().auth.isSignedIn(); }
    AppRole role() const { return context().auth.role(); }
    /// The choices in the order of their control.
    static QList<AppAppearanceMode> appearanceChoices();
    /// What the desktop says; it can be followed.
    QProperty<bool>& launchAtLogin() { return context().launchAtLogin.isOn; }

    /// Changes of the profile that are not saved. A password that was typed and not sent counts as nothing.
    bool hasEdits() const override;

    /// The screen is shown: asks the desktop and the bridge how things stand.
    void appeared();
    /// The screen is out of sight: no password stays in its fields.
    void disappeared();

    /// Fills the fields, without a word where that fails.
    QCoro::Task<> loadProfile();
    /// Sends all fields. Those that no load has brought yet are loaded first, so that nothing is saved over
    /// with emptiness.
    QCoro::Task<> saveProfile();
    QCoro::Task<> changePassword();
    /// What is wrong with the new password, when the alert on screen is about that; empty else. Only the
    /// first to ask is told.
    QString takePasswordFault() { return std::exchange(passwordFault_, {}); }
    void setLaunchAtLogin(bool enabled);

    /// Signs out once the person agrees to lose what is not saved.
    void signOut();
    /// The way to the sign-in screen for somebody who is signed out.
    void signIn() { router().open(AppSection::book); }
    /// A new message to the service's support address.
    void contactSupport();
    void visitWebsite();

protected:
    void left() override { loads_.next(); }

private:
    void fill(const JSONObject& profile);
    void forget();
    QJsonObject profile() const;
    QCoro::Task<JSONObject> sendProfile(APIClient client, QString idToken);

    Turns loads_;
    QString passwordFault_;
    bool isLoaded_ = false;
    QPropertyNotifier onUser_;
};
