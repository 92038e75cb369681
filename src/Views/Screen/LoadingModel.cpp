#include "Screen/LoadingModel.h"

#include "AppError.h"
#include "Launch.h"

QCoro::Task<> LoadingModel::load()
{
    const auto self = keep(this);
    const std::optional<AuthUser> user = signedInUser();
    if (!user)
        co_return;
    const Turn turn = loads_.next();
    isLoading = true;
    try {
        const Store store = co_await fetch(user->idToken);
        if (!turn.isOvertaken()) {
            loads_.finish(turn);
            store();
            emit loaded();
        }
    } catch (const AppError& error) {
        if (!turn.isOvertaken())
            fail(loadFailureTitle(), error);
    }
    if (turn.isNewest())
        isLoading = false;
}

void LoadingModel::loadChange()
{
    outdateLoads();
    launch(load());
}
