#include "Screen/LoadingModel.h"

#include "AppError.h"
#include "Launch.h"

QCoro::Task<> LoadingModel::load()
{
    const auto self = keep(this);
    const std::optional<AuthUser> user = signedInUser();
    if (!user || isLeft_)
        co_return;
    const Turn turn = loads_.beside();
    isLoading = true;
    try {
        const APIClient client = api(turn);
        const Store store = co_await fetch(client, user->idToken);
        if (!turn.isOvertaken()) {
            loads_.finish(turn);
            store();
            emit loaded();
        }
    } catch (const AppError& error) {
        if (!turn.isOvertaken())
            fail(loadFailureTitle(), error);
    }
    loads_.end(turn);
    if (turn.isNewest())
        isLoading = false;
}

void LoadingModel::left()
{
    isLeft_ = true;
    outdateLoads();
}

void LoadingModel::loadChange()
{
    outdateLoads();
    launch(load());
}
