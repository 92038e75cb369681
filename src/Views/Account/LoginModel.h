#pragma once

#include "Screen/ScreenModel.h"

/// Signing in, or creating a client account, in place of a section that asks for it.
class LoginModel : public ScreenModel
{
    Q_OBJECT

public:
    /// \param title,systemImage  the section that asked
    LoginModel(const ScreenContext& context, QString title, QString systemImage)
        : ScreenModel(context), title(std::move(title)), systemImage(std::move(systemImage))
    { }

    const QString title;
    const QString systemImage;

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

private:
    QString firstFault() const;
    QCoro::Task<> send();
};
