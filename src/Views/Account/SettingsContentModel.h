#pragma once

#include "Screen/ScreenModel.h"
#include "Shell/AppearanceModel.h"

/// The person's settings: who they are, in which role, and how the program looks.
class SettingsContentModel : public ScreenModel
{
    Q_OBJECT

public:
    SettingsContentModel(const ScreenContext& context, AppearanceModel& appearanceModel)
        : ScreenModel(context), appearance(appearanceModel)
    { }

    AppearanceModel& appearance;

    bool isSignedIn() const { return context().auth.isSignedIn(); }
    AppRole role() const { return context().auth.role(); }
    /// The choices in the order of their control.
    static QList<AppAppearanceMode> appearanceChoices();

    void signOut() { auth().signOut(); }
    /// The way to the sign-in screen for somebody who is signed out.
    void signIn() { router().open(AppSection::book); }
    /// A new message to the service's support address.
    void contactSupport();
    void visitWebsite();
};
