#include "Screen/LeaveGuard.h"

#include "Cases.h"
#include "Printing.h"

using namespace Qt::StringLiterals;

namespace {

using Unfinished = LeaveGuard::Unfinished;

class LeaveGuardTest : public testing::Test
{
protected:
    void watch()
    {
        guard.watch(screen.get(), [this] { return unfinished; });
    }

    void leave(const QString& where)
    {
        guard.leave([this, where] { steps += where; }, [this, where] { steps += u"not "_s + where; });
    }

    QString asked() const
    {
        const std::optional<Question> question = guard.question.value();
        return question ? question->title : QString();
    }

    LeaveGuard guard;
    std::unique_ptr<QObject> screen = std::make_unique<QObject>();
    Unfinished unfinished = Unfinished::nothing;
    QStringList steps;
};

struct Reason
{
    const char* name;
    Unfinished unfinished;
    Question question;
};

class LeaveGuardReasons : public LeaveGuardTest, public testing::WithParamInterface<Reason>
{
protected:
    LeaveGuardReasons()
    {
        watch();
        unfinished = GetParam().unfinished;
        leave(u"home"_s);
    }
};

TEST_P(LeaveGuardReasons, AskBeforeTheStep)
{
    EXPECT_EQ(guard.question.value(), GetParam().question);
    EXPECT_TRUE(steps.isEmpty());
}

TEST_P(LeaveGuardReasons, LetThePersonLeave)
{
    guard.answer(true);
    EXPECT_EQ(steps, QStringList{u"home"_s});
    EXPECT_EQ(guard.question.value(), std::nullopt);
}

TEST_P(LeaveGuardReasons, LetThePersonStay)
{
    guard.answer(false);
    EXPECT_EQ(steps, QStringList{u"not home"_s});
    EXPECT_EQ(guard.question.value(), std::nullopt);
}

TEST_P(LeaveGuardReasons, AreGoneWhenAllIsFinished)
{
    guard.reconsider();
    EXPECT_TRUE(steps.isEmpty()) << "still unfinished";
    unfinished = Unfinished::nothing;
    guard.reconsider();
    EXPECT_EQ(steps, QStringList{u"home"_s});
    EXPECT_EQ(guard.question.value(), std::nullopt);
}

TEST_P(LeaveGuardReasons, AreGoneWithTheScreen)
{
    screen.reset();
    EXPECT_EQ(guard.question.value(), std::nullopt);
    EXPECT_TRUE(steps.isEmpty()) << "whoever took the screen away decided where to go";
    leave(u"elsewhere"_s);
    EXPECT_EQ(steps, QStringList{u"elsewhere"_s});
}

TEST_P(LeaveGuardReasons, AreForgottenWithAScreenThatIsOnItsWayOut)
{
    guard.forget();
    EXPECT_EQ(guard.question.value(), std::nullopt);
    leave(u"elsewhere"_s);
    EXPECT_EQ(steps, QStringList{u"elsewhere"_s});
}

INSTANTIATE_TEST_SUITE_P(Unfinished, LeaveGuardReasons,
    testing::Values(Reason{"Edits", Unfinished::edits,
                        {u"Discard Changes?"_s, u"What you entered here has not been sent or saved yet."_s,
                            u"Discard"_s, u"Keep Editing"_s}},
        Reason{"Work", Unfinished::work,
            {u"Still Saving"_s,
                u"Your last change is still being saved. If you leave now, you will not see whether it worked."_s,
                u"Leave"_s, u"Stay"_s}}),
    ByName());

TEST_F(LeaveGuardTest, GoesOnAtOnceWhereNothingIsWatched)
{
    leave(u"home"_s);
    EXPECT_EQ(steps, QStringList{u"home"_s});
}

TEST_F(LeaveGuardTest, GoesOnAtOnceWhereNothingIsUnfinished)
{
    watch();
    leave(u"home"_s);
    EXPECT_EQ(steps, QStringList{u"home"_s});
    EXPECT_EQ(guard.question.value(), std::nullopt);
}

TEST_F(LeaveGuardTest, ALaterStepTakesThePlaceOfAnEarlierOne)
{
    watch();
    unfinished = Unfinished::edits;
    leave(u"home"_s);
    leave(u"settings"_s);
    guard.answer(true);
    EXPECT_EQ(steps, QStringList{u"settings"_s});
    guard.answer(true);
    guard.answer(false);
    EXPECT_EQ(steps, QStringList{u"settings"_s}) << "each question is answered once";
}

TEST_F(LeaveGuardTest, AFailedSaveLeavesTheEditsToAskAbout)
{
    watch();
    unfinished = Unfinished::work;
    leave(u"home"_s);
    EXPECT_EQ(asked(), u"Still Saving"_s);
    unfinished = Unfinished::edits;
    guard.reconsider();
    EXPECT_EQ(asked(), u"Discard Changes?"_s);
    EXPECT_TRUE(steps.isEmpty());
}

TEST_F(LeaveGuardTest, WatchesTheScreenInFrontOnly)
{
    watch();
    unfinished = Unfinished::edits;
    QObject next;
    guard.watch(&next, [] { return Unfinished::nothing; });
    leave(u"home"_s);
    EXPECT_EQ(steps, QStringList{u"home"_s});
    screen.reset();
    guard.watch(&next, [] { return Unfinished::edits; });
    leave(u"settings"_s);
    EXPECT_EQ(asked(), u"Discard Changes?"_s) << "the end of an earlier screen ends no later watch";
}

TEST_F(LeaveGuardTest, AStepMayLeadToTheNextQuestion)
{
    watch();
    unfinished = Unfinished::edits;
    guard.leave([this] { leave(u"further"_s); });
    guard.answer(true);
    EXPECT_EQ(asked(), u"Discard Changes?"_s);
    guard.answer(true);
    EXPECT_EQ(steps, QStringList{u"further"_s});
}

TEST_F(LeaveGuardTest, AnswersGivenWhileTheQuestionIsWithdrawnAreNone)
{
    watch();
    unfinished = Unfinished::edits;
    const auto closing = guard.question.addNotifier([this] {
        if (!guard.question.value())
            guard.answer(false);
    });
    leave(u"home"_s);
    guard.answer(true);
    EXPECT_EQ(steps, QStringList{u"home"_s});
}

} // namespace
