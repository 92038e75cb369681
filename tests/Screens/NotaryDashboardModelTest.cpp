#include "Dashboards/NotaryDashboardModel.h"

#include "FailureKinds.h"
#include "Launch.h"
#include "ScreenTest.h"

#include <QAbstractItemModelTester>

using namespace Qt::StringLiterals;

namespace {

class NotaryDashboardModelTest : public ScreenTest
{
protected:
    NotaryDashboardModelTest() { signIn(account(u"Maya Whitfield"_s, {AppRole::notary}), AppRole::notary); }

    static QByteArray sessions(const QList<int>& ids, const QByteArray& status = "requested")
    {
        QByteArrayList list;
        for (const int id : ids)
            list += R"({"id": )" + QByteArray::number(id) + R"(, "status": ")" + status + R"("})";
        return '[' + list.join(',') + ']';
    }

    void answerLoad(qsizetype first, const QList<int>& assigned, const QList<int>& open)
    {
        answer(first, sessions(assigned));
        answer(first + 1, sessions(open));
    }

    void load(const QList<int>& assigned, const QList<int>& open)
    {
        const qsizetype first = requestCount();
        launch(model->load());
        settle();
        answerLoad(first, assigned, open);
    }

    /// Asks to accept a call. \returns the number of the request, if it makes one
    qsizetype accept(qint64 id)
    {
        const qsizetype number = requestCount();
        launch(model->accept(id));
        settle();
        return number;
    }

    static QList<int> ids(const QList<SessionSummary>& list)
    {
        QList<int> ids;
        for (const SessionSummary& session : list)
            ids += int(session.id);
        return ids;
    }

    static QList<int> ids(RowListModel& rows)
    {
        QList<int> ids;
        for (int row = 0; row < rows.rowCount(); ++row)
            ids += rows.index(row).data(RowListModel::IdRole).toInt();
        return ids;
    }

    void expectLists(const QList<int>& assigned, const QList<int>& open) const
    {
        EXPECT_EQ(ids(model->assignments()), assigned);
        EXPECT_EQ(ids(model->openCalls()), open);
        EXPECT_EQ(ids(model->assignedRows()), assigned);
        EXPECT_EQ(ids(model->openCallRows()), open);
    }

    std::optional<qint64> selectedId() const
    {
        const std::optional<SessionSummary>& selected = model->selected();
        return selected ? std::optional(selected->id) : std::nullopt;
    }

    std::shared_ptr<NotaryDashboardModel> model = std::make_shared<NotaryDashboardModel>(context);
    QAbstractItemModelTester assignedTester{
        &model->assignedRows(), QAbstractItemModelTester::FailureReportingMode::Fatal};
    QAbstractItemModelTester openTester{
        &model->openCallRows(), QAbstractItemModelTester::FailureReportingMode::Fatal};
};

const QString cannotAccept = u"Cannot Accept Session"_s;

TEST_F(NotaryDashboardModelTest, KeepsTheBridgesOrder)
{
    load({4, 9, 2}, {8, 1});
    expectLists({4, 9, 2}, {8, 1});
}

TEST_F(NotaryDashboardModelTest, OpensASessionInTheSessionsScreen)
{
    load({4}, {8});
    for (const qint64 id : {4, 8}) {
        model->open(id);
        EXPECT_EQ(router.selectedSection.value(), AppSection::sessions);
        EXPECT_EQ(router.selectedSessionId.value(), id);
    }
}

TEST_F(NotaryDashboardModelTest, AnAcceptedCallMovesAsTheBridgeReportsIt)
{
    load({4}, {8, 1});
    const qsizetype number = accept(8);
    EXPECT_EQ(line(number), u"POST /notary/open-calls/8/accept"_s);
    EXPECT_EQ(header(number, "Authorization"), "Bearer mayawhitfield-token");
    EXPECT_EQ(text(number), QByteArray());
    expectLists({4}, {8, 1});
    EXPECT_TRUE(model->isAccepting(8));
    EXPECT_FALSE(model->isAccepting(1));
    EXPECT_FALSE(model->isLoading.value());

    answer(number, R"({"session": {"id": 8}})");
    EXPECT_TRUE(model->isLoading.value());
    EXPECT_TRUE(model->isAccepting(8)) << "until the lists say so";
    expectLists({4}, {8, 1});
    ASSERT_EQ(requestCount(), number + 3);

    answerLoad(number + 1, {4, 8}, {1});
    expectLists({4, 8}, {1});
    EXPECT_FALSE(model->isAccepting(8));
    EXPECT_FALSE(model->isLoading.value());
    EXPECT_TRUE(alertOf(*model).isEmpty());
}

TEST_F(NotaryDashboardModelTest, ACallIsAcceptedOnceHoweverOftenItIsAsked)
{
    load({}, {8});
    const qsizetype number = accept(8);
    accept(8);
    accept(8);
    EXPECT_EQ(requestCount(), number + 1);
    answer(number, "{}");
    accept(8);
    EXPECT_EQ(requestCount(), number + 3) << "nor while the lists load";
    answerLoad(number + 1, {8}, {});
}

TEST_F(NotaryDashboardModelTest, AnotherNotaryWasFirst)
{
    load({4}, {8, 1});
    const qsizetype number = accept(8);
    answer(number, R"({"message": "Another notary has already accepted this call."})", 409);
    EXPECT_EQ(
        alertOf(*model), (QList<QString>{cannotAccept, u"Another notary has already accepted this call."_s}));
    expectLists({4}, {8, 1});
    EXPECT_FALSE(model->isAccepting(8));
    EXPECT_EQ(requestCount(), number + 1) << "nothing is loaded again";
    EXPECT_TRUE(auth.isSignedIn());
}

class AcceptFailure : public NotaryDashboardModelTest, public testing::WithParamInterface<FailureKind>
{ };

TEST_P(AcceptFailure, IsOneAlertOrASignOutAndChangesNothing)
{
    load({4}, {8, 1});
    const qsizetype number = accept(8);
    GetParam().happen(*webSession, number);
    settle();
    EXPECT_FALSE(model->isAccepting(8));
    EXPECT_EQ(requestCount(), number + 1);
    expectLists({4}, {8, 1});
    EXPECT_EQ(auth.isSignedIn(), !GetParam().message.isEmpty());
    if (GetParam().message.isEmpty())
        EXPECT_TRUE(alertOf(*model).isEmpty());
    else
        EXPECT_EQ(alertOf(*model), (QList<QString>{cannotAccept, GetParam().message}));
}

INSTANTIATE_TEST_SUITE_P(Kinds, AcceptFailure, testing::ValuesIn(failureKinds()), ByName());

TEST_F(NotaryDashboardModelTest, AFailedAcceptCanBeAskedAgain)
{
    load({}, {8});
    fail(accept(8));
    EXPECT_EQ(alertOf(*model),
        (QList<QString>{
            cannotAccept, u"Connection problem. Please check your internet connection and try again."_s}));
    expectLists({}, {8});
    const qsizetype again = accept(8);
    EXPECT_EQ(line(again), u"POST /notary/open-calls/8/accept"_s);
    answer(again, "{}");
    answerLoad(again + 1, {8}, {});
    expectLists({8}, {});
}

TEST_F(NotaryDashboardModelTest, WithoutAUserAcceptSignsOutAndStops)
{
    load({}, {8});
    auth.signOut();
    defaults.setString(AuthManager::activeRoleKey, u"notary"_s);
    const qsizetype number = accept(8);
    EXPECT_EQ(requestCount(), number);
    EXPECT_FALSE(model->isAccepting(8));
    EXPECT_TRUE(alertOf(*model).isEmpty());
    EXPECT_FALSE(defaults.string(AuthManager::activeRoleKey).has_value());
}

TEST_F(NotaryDashboardModelTest, CallsAreAcceptedSideBySide)
{
    load({}, {8, 1, 5});
    const qsizetype first = accept(8);
    const qsizetype second = accept(1);
    EXPECT_TRUE(model->isAccepting(8) && model->isAccepting(1));
    answer(first, R"({"message": "Taken."})", 409);
    EXPECT_EQ(alertOf(*model), (QList<QString>{cannotAccept, u"Taken."_s})) << "the later does not hide it";
    EXPECT_FALSE(model->isAccepting(8));
    EXPECT_TRUE(model->isAccepting(1));
    answer(second, "{}");
    answerLoad(second + 1, {1}, {8, 5});
    expectLists({1}, {8, 5});
}

TEST_F(NotaryDashboardModelTest, AReloadThatFailsAfterAcceptingIsALoadThatFailed)
{
    load({4}, {8});
    const qsizetype number = accept(8);
    answer(number, "{}");
    answer(number + 1, sessions({4, 8}));
    answer(number + 2, R"({"message": "Try later."})", 500);
    EXPECT_EQ(alertOf(*model), (QList<QString>{u"Cannot Load Notary Dashboard"_s, u"Try later."_s}));
    expectLists({4}, {8});
    EXPECT_FALSE(model->isAccepting(8));
}

TEST_F(NotaryDashboardModelTest, ALoadUnderWayWhenACallIsAcceptedComesTooLate)
{
    load({4}, {8});
    const qsizetype older = requestCount();
    launch(model->load());
    const qsizetype number = accept(8);
    answer(number, "{}");
    answerLoad(number + 1, {4, 8}, {});
    answerLoad(older, {4}, {8});
    expectLists({4, 8}, {});
}

TEST_F(NotaryDashboardModelTest, ASignOutWhileAcceptingLoadsNothing)
{
    for (const int status : {200, 401, 409}) {
        load({4}, {8});
        const qsizetype number = accept(8);
        replaceUser(account(u"Second"_s, {AppRole::notary}), AppRole::notary);
        answer(number, "{}", status);
        EXPECT_EQ(requestCount(), number + 1) << status;
        EXPECT_TRUE(alertOf(*model).isEmpty()) << status;
        EXPECT_TRUE(auth.isSignedIn()) << status;
        EXPECT_FALSE(model->isAccepting(8)) << status;
        expectLists({4}, {8});
    }
}

TEST_F(NotaryDashboardModelTest, SaysWhenTheSetOfCallsBeingAcceptedChanges)
{
    load({}, {8});
    QList<bool> states;
    QObject::connect(model.get(), &NotaryDashboardModel::acceptingChanged, model.get(),
        [&] { states += model->isAccepting(8); });
    answer(accept(8), "{}", 409);
    EXPECT_EQ(states, (QList<bool>{true, false}));
}

TEST_F(NotaryDashboardModelTest, LivesUntilItsCallIsAccepted)
{
    load({}, {8});
    const std::weak_ptr<NotaryDashboardModel> gone = model;
    const qsizetype number = accept(8);
    model.reset();
    EXPECT_FALSE(gone.expired());
    answer(number, "{}");
    answerLoad(number + 1, {8}, {});
    EXPECT_TRUE(gone.expired());
}

TEST_F(NotaryDashboardModelTest, OneSessionOfBothListsIsSelected)
{
    load({4, 9}, {8, 1});
    EXPECT_EQ(selectedId(), std::nullopt);
    int changes = 0;
    QObject::connect(model.get(), &NotaryDashboardModel::selectionChanged, model.get(), [&] { ++changes; });
    model->select(9);
    EXPECT_EQ(selectedId(), 9);
    model->select(8);
    EXPECT_EQ(selectedId(), 8);
    model->select(8);
    model->select(77);
    EXPECT_EQ(selectedId(), 8) << "unknown";
    EXPECT_EQ(changes, 2);
}

TEST_F(NotaryDashboardModelTest, TheSelectionFollowsItsSessionIntoTheOtherList)
{
    load({4}, {8});
    model->select(8);
    load({4, 8}, {});
    EXPECT_EQ(selectedId(), 8);
    const qsizetype first = requestCount();
    launch(model->load());
    settle();
    answer(first, sessions({8}, "completed"));
    answer(first + 1, "[]");
    EXPECT_EQ(model->selected()->status(), u"completed"_s) << "with its new contents";
    load({4}, {});
    EXPECT_EQ(selectedId(), std::nullopt) << "gone with its session";
}

TEST_F(NotaryDashboardModelTest, RowsWithoutAnIdAreToldApart)
{
    launch(model->load());
    settle();
    answer(0, "[]");
    answer(1, R"([{"client_name": "A"}, {"client_name": "B"}])");
    ASSERT_EQ(model->openCalls().size(), 2);
    EXPECT_NE(model->openCalls().at(0).id, model->openCalls().at(1).id);
}

TEST_F(NotaryDashboardModelTest, IdsAsTextAreIds)
{
    launch(model->load());
    settle();
    answer(0, "[]");
    answer(1, R"([{"session_id": "31"}, {"id": " 9", "session_id": 32}])");
    EXPECT_EQ(ids(model->openCalls()), (QList<int>{31, 32}));
    EXPECT_EQ(line(accept(31)), u"POST /notary/open-calls/31/accept"_s);
}

} // namespace
