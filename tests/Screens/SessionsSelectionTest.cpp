#include "Sessions/SessionsModel.h"

#include "Cases.h"
#include "Launch.h"
#include "ScreenTest.h"

using namespace Qt::StringLiterals;

namespace {

/// The list with the sessions 4, 2 and 9, of which the first is selected, as its view keeps it.
class SessionsSelectionTest : public ScreenTest
{
protected:
    SessionsSelectionTest()
    {
        signIn(account(u"Maya"_s, {AppRole::notary, AppRole::admin}), AppRole::admin);
        model = std::make_shared<SessionsModel>(context);
        QObject::connect(model.get(), &SessionsModel::selectionChanged, model.get(), [this] { ++changes; });
        leaving.watch(model.get(), [this] { return model->unfinished(); });
        launch(model->load());
        settle();
        answerList();
        changes = 0;
    }

    void answerList(const QByteArray& list = threeSessions)
    {
        EXPECT_EQ(line(requestCount() - 1), u"GET /remote-notary/sessions?scope=admin_all"_s);
        answer(requestCount() - 1, list);
    }

    void start(QCoro::Task<> (SessionDetailModel::*operation)())
    {
        launch((model->detail().get()->*operation)());
        settle();
    }

    qint64 selected() const
    {
        const std::optional<SessionSummary>& session = model->selectedSession();
        return session ? session->id : 0;
    }

    qint64 shown() const
    {
        return model->detail() && model->detail()->session() ? model->detail()->session()->id : 0;
    }

    bool isAsking() const { return leaving.question.value().has_value(); }

    QList<qint64> rows()
    {
        QList<qint64> ids;
        for (int row = 0; row < model->rows().rowCount(); ++row)
            ids += model->rows().index(row).data(RowListModel::IdRole).toLongLong();
        return ids;
    }

    inline static const QByteArray threeSessions = R"([{"id": 4, "scheduled_date": "2026-03-04"},
        {"id": 2, "scheduled_date": "2026-03-02"}, {"id": 9, "scheduled_date": "2026-03-01"}])";

    std::shared_ptr<SessionsModel> model;
    int changes = 0;
};

TEST_F(SessionsSelectionTest, TheSelectedSessionHasADetailThatWaitsForItsView)
{
    ASSERT_NE(model->detail(), nullptr);
    EXPECT_EQ(requestCount(), 1);
    start(&SessionDetailModel::load);
    EXPECT_EQ(line(1), u"GET /remote-notary/sessions/4"_s);
}

TEST_F(SessionsSelectionTest, AnotherSessionHasAnotherDetail)
{
    const std::shared_ptr<SessionDetailModel> before = model->detail();
    model->select(9);
    EXPECT_NE(model->detail(), before);
    start(&SessionDetailModel::load);
    EXPECT_EQ(line(1), u"GET /remote-notary/sessions/9"_s);
}

TEST_F(SessionsSelectionTest, AReloadOfTheListKeepsTheDetail)
{
    const std::shared_ptr<SessionDetailModel> before = model->detail();
    launch(model->load());
    settle();
    answerList(R"([{"id": 2, "scheduled_date": "2026-05-01"}, {"id": 4, "status": "completed"}])");
    EXPECT_EQ(model->detail(), before);
    EXPECT_EQ(selected(), 4);
}

TEST_F(SessionsSelectionTest, ARefreshLoadsTheListAndTheDetail)
{
    model->refresh();
    settle();
    ASSERT_EQ(requestCount(), 3);
    EXPECT_EQ(line(1), u"GET /remote-notary/sessions?scope=admin_all"_s);
    EXPECT_EQ(line(2), u"GET /remote-notary/sessions/4"_s);
    model->select(9);
    answer(2, R"({"id": 4})");
    EXPECT_EQ(requestCount(), 3);
}

TEST_F(SessionsSelectionTest, ARefreshWithoutASelectionLoadsTheList)
{
    const auto empty = std::make_shared<SessionsModel>(context);
    empty->refresh();
    settle();
    EXPECT_EQ(requestCount(), 2);
    EXPECT_EQ(line(1), u"GET /remote-notary/sessions?scope=admin_all"_s);
}

TEST_F(SessionsSelectionTest, NoSessionsAnswerIsShownUnderAnothersHeading)
{
    // Each row is left before its answer; the answers come in every order.
    for (const qint64 id : {4, 2, 9}) {
        model->select(id);
        start(&SessionDetailModel::load);
    }
    ASSERT_EQ(requestCount(), 4);
    answer(2, R"({"id": 2})");
    EXPECT_EQ(shown(), 0);
    answer(3, R"({"id": 9})");
    EXPECT_EQ(shown(), 9);
    answer(1, R"({"id": 4})");
    EXPECT_EQ(shown(), 9);
    ASSERT_EQ(requestCount(), 5) << "only the selected one goes on";
    EXPECT_EQ(line(4), u"GET /remote-notary/sessions/9/messages"_s);
}

TEST_F(SessionsSelectionTest, WithTheListItsDetailEnds)
{
    start(&SessionDetailModel::load);
    leaving.forget();
    model.reset();
    answer(1, R"({"id": 4})");
    EXPECT_EQ(requestCount(), 2);
}

// What is unfinished

class SessionsLeavingTest : public SessionsSelectionTest
{
protected:
    SessionsLeavingTest() { model->detail()->statusNote = u"Half a note"_s; }
};

TEST_F(SessionsLeavingTest, AnotherRowWaitsForTheAnswer)
{
    model->select(9);
    EXPECT_TRUE(isAsking());
    EXPECT_EQ(selected(), 4);
    EXPECT_EQ(changes, 0);
    EXPECT_FALSE(router.selectedSessionId.value().has_value());

    leaving.answer(true);
    EXPECT_EQ(selected(), 9);
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(router.selectedSessionId.value(), 9);
    EXPECT_EQ(model->unfinished(), LeaveGuard::Unfinished::nothing);
}

TEST_F(SessionsLeavingTest, WhoKeepsEditingKeepsEverything)
{
    const std::shared_ptr<SessionDetailModel> before = model->detail();
    model->select(9);
    leaving.answer(false);
    EXPECT_EQ(selected(), 4);
    EXPECT_EQ(model->detail(), before);
    EXPECT_EQ(before->statusNote.value(), u"Half a note"_s);
    EXPECT_EQ(changes, 0);
}

TEST_F(SessionsLeavingTest, TheSelectedRowIsNothingToAskAbout)
{
    model->select(4);
    EXPECT_FALSE(isAsking());
    model->select(77);
    EXPECT_FALSE(isAsking()) << "nor is one that is not there";
}

TEST_F(SessionsLeavingTest, ARowThatGoesWhileThePersonIsAskedIsNotGoneTo)
{
    model->select(9);
    launch(model->load());
    settle();
    answerList(R"([{"id": 4}])");
    leaving.answer(true);
    EXPECT_EQ(selected(), 4);
    EXPECT_EQ(model->detail()->statusNote.value(), u"Half a note"_s);
}

TEST_F(SessionsLeavingTest, AReloadThatWouldFollowTheRouterAsksFirst)
{
    router.selectedSessionId = 9;
    launch(model->load());
    settle();
    answerList();
    EXPECT_TRUE(isAsking());
    EXPECT_EQ(selected(), 4);
    leaving.answer(true);
    EXPECT_EQ(selected(), 9);
}

TEST_F(SessionsLeavingTest, ARefreshKeepsWhatIsTyped)
{
    model->refresh();
    settle();
    answer(2, R"({"id": 4, "status_note": "From the bridge", "proposed_fee": "41"})");
    EXPECT_EQ(line(3), u"GET /remote-notary/sessions/4/messages"_s);
    EXPECT_EQ(model->detail()->statusNote.value(), u"Half a note"_s);
    EXPECT_EQ(model->detail()->proposedFee.value(), u"41"_s);
    answer(1, threeSessions);
    EXPECT_FALSE(isAsking());
    EXPECT_EQ(model->detail()->statusNote.value(), u"Half a note"_s);
}

TEST_F(SessionsLeavingTest, AQuestionAboutAListThatHasGoneIsAnsweredInVain)
{
    model->select(9);
    leaving.watch(&notifications, [] { return LeaveGuard::Unfinished::edits; });
    model->select(9);
    std::weak_ptr<SessionsModel> gone = model;
    model.reset();
    EXPECT_TRUE(gone.expired());
    leaving.answer(true);
}

TEST_F(SessionsLeavingTest, AnotherRoleDropsTheDetail)
{
    auth.switchRole(AppRole::notary);
    EXPECT_EQ(model->detail(), nullptr);
    EXPECT_EQ(model->unfinished(), LeaveGuard::Unfinished::nothing);
    EXPECT_EQ(line(1), u"GET /remote-notary/sessions?scope=notary_assigned"_s);
}

// Changes

TEST_F(SessionsSelectionTest, AfterASaveTheListIsLoadedToo)
{
    start(&SessionDetailModel::saveAdmin);
    answer(1, "{}");
    ASSERT_EQ(requestCount(), 4);
    EXPECT_EQ(line(2), u"GET /remote-notary/sessions?scope=admin_all"_s);
    EXPECT_EQ(line(3), u"GET /remote-notary/sessions/4"_s);
}

TEST_F(SessionsSelectionTest, AListAskedForBeforeASaveComesTooLate)
{
    launch(model->load());
    settle();
    start(&SessionDetailModel::saveAdmin);
    answer(2, "{}");
    ASSERT_EQ(line(3), u"GET /remote-notary/sessions?scope=admin_all"_s);
    answer(1, R"([{"id": 4, "status": "before"}])");
    EXPECT_NE(model->sessions().constFirst().status(), u"before"_s);
    answer(3, R"([{"id": 4, "status": "after"}])");
    EXPECT_EQ(model->sessions().constFirst().status(), u"after"_s);
    EXPECT_EQ(line(4), u"GET /remote-notary/sessions/4"_s);
}

TEST_F(SessionsSelectionTest, AfterACancellationTheListIsLoadedToo)
{
    start(&SessionDetailModel::cancel);
    answer(1, "{}");
    EXPECT_EQ(line(2), u"GET /remote-notary/sessions?scope=admin_all"_s);
    EXPECT_EQ(line(3), u"GET /remote-notary/sessions/4"_s);
}

TEST_F(SessionsSelectionTest, ADeletedSessionLeavesTheListAndTheSelection)
{
    model->select(2);
    start(&SessionDetailModel::deleteSession);
    EXPECT_EQ(line(1), u"DELETE /admin/records/2"_s);
    answer(1, "{}");
    EXPECT_EQ(selected(), 0);
    EXPECT_EQ(model->detail(), nullptr);
    EXPECT_FALSE(router.selectedSessionId.value().has_value());
    EXPECT_EQ(rows(), (QList<qint64>{4, 9})) << "before the list is loaded again";
    answerList(R"([{"id": 4}, {"id": 9}])");
    EXPECT_EQ(selected(), 4);
}

TEST_F(SessionsSelectionTest, ADeletedSessionStaysAwayWhenTheListCannotBeLoaded)
{
    start(&SessionDetailModel::deleteSession);
    answer(1, "{}");
    fail(2);
    EXPECT_EQ(rows(), (QList<qint64>{2, 9}));
    EXPECT_EQ(model->sessions().size(), 2);
    EXPECT_EQ(selected(), 0);
    EXPECT_EQ(alertOf(*model).value(0), u"Cannot Load Sessions"_s);
}

TEST_F(SessionsSelectionTest, ASessionDeletedBehindAnotherOneLeavesTheSelectionAlone)
{
    start(&SessionDetailModel::deleteSession);
    model->select(9);
    EXPECT_TRUE(isAsking());
    leaving.answer(true);
    const std::shared_ptr<SessionDetailModel> detail = model->detail();
    answer(1, "{}");
    EXPECT_EQ(selected(), 9);
    EXPECT_EQ(model->detail(), detail);
    EXPECT_EQ(rows(), (QList<qint64>{2, 9}));
    answerList(R"([{"id": 2}, {"id": 9}])");
    EXPECT_EQ(selected(), 9);
}

TEST_F(SessionsSelectionTest, WhoWaitsToLeaveADeletedSessionGoesWhereTheyWanted)
{
    start(&SessionDetailModel::deleteSession);
    model->select(9);
    answer(1, "{}");
    EXPECT_FALSE(isAsking());
    EXPECT_EQ(selected(), 9);
    answerList(R"([{"id": 2}, {"id": 9}])");
    EXPECT_EQ(selected(), 9);
}

TEST_F(SessionsSelectionTest, AFailedDeletionLeavesEverything)
{
    start(&SessionDetailModel::deleteSession);
    fail(1);
    EXPECT_EQ(selected(), 4);
    EXPECT_EQ(model->rows().rowCount(), 3);
    EXPECT_EQ(requestCount(), 2);
    EXPECT_EQ(alertOf(*model->detail()).value(0), u"Cannot Delete Session"_s);
}

} // namespace
