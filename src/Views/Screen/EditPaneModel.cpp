#include "Screen/EditPaneModel.h"

#include "AppError.h"

LeaveGuard::Unfinished EditPaneModel::unfinished() const
{
    if (work.value() != Work::none)
        return LeaveGuard::Unfinished::work;
    return hasEdits() ? LeaveGuard::Unfinished::edits : LeaveGuard::Unfinished::nothing;
}

QCoro::Task<> EditPaneModel::carryOut(Change change)
{
    const auto self = keep(this);
    const std::optional<AuthUser> user = signedInUser();
    if (!user || work.value() != Work::none)
        co_return;
    const Turn turn = works_.next();
    work = change.work;
    bool isDone = false;
    try {
        const APIClient client = api();
        co_await change.send(client, user->idToken);
        isDone = !turn.isOver();
    } catch (const AppError& error) {
        fail(turn, change.failureTitle, error);
    }
    if (isDone)
        change.accepted();
    work = Work::none;
    // Whoever waits to leave goes on after a success, and stays with a failure, which they have to read.
    if (isDone)
        context().leaving.reconsider();
    else if (!isClosed_)
        context().leaving.answer(false);
    if (isDone && !isClosed_)
        loadAgain();
}
