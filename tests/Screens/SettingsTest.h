#pragma once

#include "Account/SettingsContentModel.h"

#include "Launch.h"
#include "ScreenTest.h"
#include "support/SteadyAppearance.h"

/// The settings of a client, before anything is loaded.
class SettingsTest : public ScreenTest
{
protected:
    SettingsTest()
    {
        AuthUser user = account(QStringLiteral("Priya Raman"));
        user.state = QStringLiteral("Ohio");
        signIn(user);
    }

    /// Name, e-mail, phone, city, state.
    QList<QString> profile() const
    {
        return {model->name.value(), model->email.value(), model->phone.value(), model->city.value(),
            model->state.value()};
    }
    QList<QString> passwords() const { return {model->currentPassword.value(), model->newPassword.value()}; }

    void load(const QByteArray& answered)
    {
        launch(model->loadProfile());
        answer(requestCount() - 1, answered);
    }
    void typeProfile()
    {
        model->name = QStringLiteral(" Priya  Raman ");
        model->email = QStringLiteral(" priya@example.com ");
        model->phone = QStringLiteral("(555) 010-0142");
        model->city = QString();
        model->state = QStringLiteral(" NY");
    }
    void typePasswords(const QString& current, const QString& chosen)
    {
        model->currentPassword = current;
        model->newPassword = chosen;
    }

    SteadyAppearance desktop;
    AppearanceModel appearance{defaults, desktop};
    std::shared_ptr<SettingsContentModel> model = std::make_shared<SettingsContentModel>(context, appearance);
};

/// A profile as the bridge tells it, and what it puts into the fields.
inline constexpr auto whole = R"({"full_name": "Priya Raman", "email": "p@example.com", "phone": "5550100",
    "city": "Albany", "state": "New York"})";
inline const QList<QString> wholeProfile{QStringLiteral("Priya Raman"), QStringLiteral("p@example.com"),
    QStringLiteral("5550100"), QStringLiteral("Albany"), QStringLiteral("New York")};
