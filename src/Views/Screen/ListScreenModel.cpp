#include "Screen/ListScreenModel.h"

#include "AppError.h"

ListScreenModel::ListScreenModel(const ScreenContext& context) : ScreenModel(context), loads_(epoch())
{
    onSearch_ = search.addNotifier([this] { rows_.setSearch(search.value()); });
}

QCoro::Task<> ListScreenModel::load()
{
    const auto self = keep(this);
    const std::optional<AuthUser> user = signedInUser();
    if (!user)
        co_return;
    const Turn turn = loads_.next();
    isLoading = true;
    try {
        const Store store = co_await fetch(user->idToken);
        if (!turn.isOver())
            store();
    } catch (const AppError& error) {
        fail(turn, loadFailureTitle(), error);
    }
    if (turn.isNewest())
        isLoading = false;
}

LeaveGuard::Unfinished ListScreenModel::unfinished() const
{
    const std::shared_ptr<EditPaneModel> open = pane();
    return open ? open->unfinished() : LeaveGuard::Unfinished::nothing;
}
