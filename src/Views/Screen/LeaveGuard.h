#pragma once

#include "Question.h"

#include <QObject>
#include <QPointer>
#include <QProperty>

#include <functional>
#include <optional>

/// Stands before every step that would throw away what is unfinished on the screen in front: choosing another
/// row of its list, going to another section, switching the role. Where nothing is unfinished the step is
/// taken at once; else the person is asked first.
///
/// One guard serves the window, which shows its question. A screen with something to lose calls watch() when
/// it is built; whoever is about to leave it, the screen itself included, calls leave().
class LeaveGuard : public QObject
{
    Q_OBJECT

public:
    /// What would be lost.
    enum class Unfinished
    {
        nothing,
        edits, ///< something was typed or chosen and is not saved
        work, ///< a change is on its way to the bridge, and how it ends would not be seen
    };

    /// Watches over a screen, in the place of the one before.
    /// \param screen      its end ends the watch
    /// \param unfinished  what a step would throw away now
    void watch(QObject* screen, std::function<Unfinished()> unfinished);
    /// What a step would throw away now.
    Unfinished unfinished() const;
    /// The screen in front is on its way out, whoever decided that: there is nothing left to lose.
    void forget();

    /// Takes a step once nothing speaks against it.
    /// \param goOn  takes it: now, or when the person agrees, or when what was unfinished is finished after
    ///              all. Not called when the person stays, nor when a later step takes this one's place.
    /// \param stay  called when the person stays
    void leave(std::function<void()> goOn, std::function<void()> stay = {});

    /// The question that is open.
    QProperty<std::optional<Question>> question;
    /// The person's answer to it; nothing happens when none is open.
    void answer(bool leaves);

    /// To be called when something that was unfinished may be finished: an open question that has lost its
    /// reason is withdrawn and the step taken.
    void reconsider();

private:
    struct Step
    {
        std::function<void()> goOn;
        std::function<void()> stay;
    };

    void askOrGoOn();
    Step close();

    QPointer<QObject> screen_;
    std::function<Unfinished()> unfinished_;
    std::optional<Step> step_; ///< what the open question is about
    QMetaObject::Connection onScreenGone_;
};
