#include "Screen/LeaveGuard.h"

#include <utility>

using namespace Qt::StringLiterals;

static Question questionAbout(LeaveGuard::Unfinished unfinished)
{
    if (unfinished == LeaveGuard::Unfinished::work)
        return {u"Still Saving"_s,
            u"Your last change is still being saved. If you leave now, you will not see whether it worked."_s,
            u"Leave"_s, u"Stay"_s};
    return {u"Discard Changes?"_s, u"What you entered here has not been sent or saved yet."_s, u"Discard"_s,
        u"Keep Editing"_s};
}

void LeaveGuard::watch(QObject* screen, std::function<Unfinished()> unfinished)
{
    forget();
    screen_ = screen;
    unfinished_ = std::move(unfinished);
    onScreenGone_ = connect(screen, &QObject::destroyed, this, &LeaveGuard::forget);
}

void LeaveGuard::forget()
{
    disconnect(onScreenGone_);
    screen_ = nullptr;
    unfinished_ = nullptr;
    close();
}

LeaveGuard::Unfinished LeaveGuard::unfinished() const
{
    return screen_ && unfinished_ ? unfinished_() : Unfinished::nothing;
}

void LeaveGuard::leave(std::function<void()> goOn, std::function<void()> stay)
{
    step_ = Step{std::move(goOn), std::move(stay)};
    askOrGoOn();
}

void LeaveGuard::askOrGoOn()
{
    const Unfinished reason = unfinished();
    if (reason == Unfinished::nothing)
        close().goOn();
    else
        question = questionAbout(reason);
}

LeaveGuard::Step LeaveGuard::close()
{
    // The step first: whoever shows the question answers it once more when it is withdrawn.
    Step step = std::exchange(step_, std::nullopt).value_or(Step());
    question = std::nullopt;
    return step;
}

void LeaveGuard::answer(bool leaves)
{
    if (!step_)
        return;
    const Step step = close();
    if (leaves)
        step.goOn();
    else if (step.stay)
        step.stay();
}

void LeaveGuard::reconsider()
{
    if (step_)
        askOrGoOn();
}
