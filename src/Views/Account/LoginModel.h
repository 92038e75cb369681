#pragma once

#include "Screen/ScreenModel.h"

/// Signing in, or creating a client account, in place of a section that asks for it.
class LoginModel : public ScreenModel
{
    Q_OBJECT

public:
    /// \param sectionTitle,sectionImage  the section that asked
    LoginModel(const ScreenContext& context, const QString& sectionTitle, const QString& sectionImage)
        : ScreenModel(context), title(sectionTitle), systemImage(sectionImage)
    { }

    enum class Field
    {
        name,
        email,
        password
    };
    /// Where to go on after an alert.
    struct Retry
    {
        Field field;
        QString fault; ///< what the field lacks; empty when only the server knows what was wrong
    };

    const QString title; ///< of the section that asked
    const QString systemImage; ///< of the section that asked

    QProperty<bool> isRegistering{false};
    QProperty<QString> name;
    QProperty<QString> email;
    QProperty<QString> password;
    QProperty<QString> phone;
    QProperty<QString> city;
    QProperty<QString> state;

    QProperty<bool>& isBusy() { return auth().isBusy; }

    /// Checks the fields, then signs in or registers. Does nothing while one is under way.
    QCoro::Task<> submit();
    /// The screen is gone. How a sign-in ends that is under way is told by the window.
    void close() { isClosed_ = true; }
    /// What the alert on screen asks the person to do over, if anything. Only the first to ask gets it.
    std::optional<Retry> takeRetry() { return std::exchange(retry_, std::nullopt); }

private:
    std::optional<Retry> firstFault() const;
    QCoro::Task<> send();

    bool isClosed_ = false;
    std::optional<Retry> retry_;
};
