#include "Screen/ScreenModel.h"

#include "AppError.h"

void ScreenModel::beginView()
{
    if (++views_ == 1)
        entered();
}

void ScreenModel::endView()
{
    if (--views_ == 0)
        left();
}

std::optional<AuthUser> ScreenModel::signedInUser()
{
    std::optional<AuthUser> user = auth().user.value();
    if (!user)
        auth().signOut();
    return user;
}

void ScreenModel::fail(const Turn& turn, const QString& title, const std::exception& error)
{
    if (!turn.isOver())
        fail(title, error);
}

void ScreenModel::fail(const QString& title, const std::exception& error)
{
    if (isSessionExpired(error))
        auth().signOut();
    else
        showAlert(title, naturalMessage(error));
}

void ScreenModel::showAlert(const QString& title, const QString& message)
{
    alert = AlertMessage{.title = title, .message = message};
}
