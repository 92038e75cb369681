#include "SessionDetailTest.h"

#include "FailureKinds.h"

#include <array>
#include <tuple>

using namespace Qt::StringLiterals;

namespace {

const QString sessionLine = u"GET /remote-notary/sessions/7"_s;
const QString messagesLine = u"GET /remote-notary/sessions/7/messages"_s;
const QString documentsLine = u"GET /remote-notary/sessions/7/documents"_s;
const QString notariesLine = u"GET /admin/notaries"_s;

TEST_F(SessionDetailTest, StartsWithoutASession)
{
    EXPECT_FALSE(model->session().has_value());
    EXPECT_TRUE(model->notaries().isEmpty());
    EXPECT_FALSE(model->isLoading.value());
    EXPECT_FALSE(model->messages()->isLoaded.value());
    EXPECT_FALSE(model->documents()->isLoaded.value());
    EXPECT_EQ(model->work.value(), SessionDetailModel::Work::none);
    EXPECT_EQ(model->status.value(), QString());
    EXPECT_EQ(model->selectedNotaryId.value(), 0);
    EXPECT_FALSE(model->requiresWitness.value());
    EXPECT_FALSE(model->hasEdits());
    EXPECT_FALSE(model->canCancel());
    EXPECT_EQ(model->unfinished(), LeaveGuard::Unfinished::nothing);
    EXPECT_EQ(requestCount(), 0);
    EXPECT_EQ(SessionDetailModel::statusOptions(),
        (QList<QString>{u"requested"_s, u"scheduled"_s, u"rescheduled"_s, u"completed"_s, u"cancelled"_s}));
}

TEST_F(SessionDetailTest, LoadsOneAfterTheOther)
{
    load();
    EXPECT_TRUE(model->isLoading.value());
    EXPECT_EQ(linesFrom(0), QList<QString>{sessionLine});
    EXPECT_EQ(header(0, "Authorization"), "Bearer maya-token");

    answer(0, scheduled);
    EXPECT_EQ(model->session()->id, 7);
    EXPECT_EQ(model->status.value(), u"scheduled"_s);
    EXPECT_FALSE(model->messages()->isLoaded.value());
    EXPECT_EQ(linesFrom(1), QList<QString>{messagesLine});

    answer(1, R"([{"id": 1, "message": "Hello"}])");
    EXPECT_TRUE(model->messages()->isLoaded.value());
    ASSERT_EQ(model->messages()->messages().size(), 1);
    EXPECT_EQ(model->messages()->messages().constFirst().message, u"Hello"_s);
    EXPECT_EQ(linesFrom(2), QList<QString>{documentsLine});

    answer(2, R"([{"id": 2, "label": "Deed"}])");
    EXPECT_TRUE(model->documents()->isLoaded.value());
    ASSERT_EQ(model->documents()->documents().size(), 1);
    EXPECT_EQ(model->documents()->documents().constFirst().displayName(), u"Deed"_s);
    EXPECT_EQ(linesFrom(3), QList<QString>{notariesLine});

    answer(3, notaries);
    EXPECT_EQ(model->notaries().size(), 2);
    EXPECT_FALSE(model->isLoading.value());
    EXPECT_EQ(requestCount(), 4);
    EXPECT_TRUE(alertOf(*model).isEmpty());
}

TEST_F(SessionDetailTest, FillsEveryField)
{
    loadWhole();
    EXPECT_EQ(model->status.value(), u"scheduled"_s);
    EXPECT_EQ(model->confirmedDate.value(), u"2026-03-12"_s);
    EXPECT_EQ(model->confirmedTime.value(), u"2:30 PM"_s);
    EXPECT_EQ(model->proposedFee.value(), u"41.00"_s);
    EXPECT_EQ(model->statusNote.value(), u"Confirmed."_s);
    EXPECT_EQ(model->selectedNotaryId.value(), 12);
    EXPECT_TRUE(model->requiresWitness.value());
    EXPECT_EQ(model->witnessName.value(), u"Elena"_s);
    EXPECT_FALSE(model->hasEdits());
}

struct Holder
{
    const char* name;
    QList<AppRole> roles;
    AppRole active;
    bool notaryControls;
    bool adminControls;
};

class SessionDetailRoles : public SessionDetailTest, public testing::WithParamInterface<Holder>
{ };

TEST_P(SessionDetailRoles, DecideByTheActiveOneWhateverElseIsHeld)
{
    replaceUser(account(u"Someone"_s, GetParam().roles), GetParam().active);
    EXPECT_EQ(model->hasNotaryControls(), GetParam().notaryControls);
    EXPECT_EQ(model->hasAdminControls(), GetParam().adminControls);
    load();
    answer(0, scheduled);
    answer(1, "[]");
    answer(2, "[]");
    EXPECT_EQ(requestCount(), GetParam().adminControls ? 4 : 3);
    EXPECT_EQ(model->isLoading.value(), GetParam().adminControls);
    if (GetParam().adminControls)
        answer(3, "[]");
}

INSTANTIATE_TEST_SUITE_P(Roles, SessionDetailRoles,
    testing::Values(Holder{"Client", {}, AppRole::client, false, false},
        Holder{"Business", {AppRole::business}, AppRole::business, false, false},
        Holder{"Notary", {AppRole::notary}, AppRole::notary, true, false},
        Holder{"NotaryAsClient", {AppRole::notary}, AppRole::client, false, false},
        Holder{"Admin", {AppRole::admin}, AppRole::admin, false, true},
        Holder{"AdminAsClient", {AppRole::admin}, AppRole::client, false, false},
        Holder{"BothAsNotary", {AppRole::notary, AppRole::admin}, AppRole::notary, true, false},
        Holder{"BothAsAdmin", {AppRole::notary, AppRole::admin}, AppRole::admin, false, true},
        Holder{"BothAsClient", {AppRole::notary, AppRole::admin}, AppRole::client, false, false}),
    ByName());

/// A load fails at the step of that number, counted from 0, in one way or another.
using Fault = std::tuple<qsizetype, FailureKind>;

class SessionDetailFaults : public SessionDetailTest, public testing::WithParamInterface<Fault>
{
protected:
    static qsizetype step() { return std::get<0>(GetParam()); }
    static const FailureKind& kind() { return std::get<1>(GetParam()); }
    static bool endsTheSession() { return kind().message.isEmpty(); }

    void failAtItsStep()
    {
        const QList<QByteArray> good{scheduled, R"([{"id": 1, "message": "Hello"}])", R"([{"id": 2}])"};
        const qsizetype first = requestCount() - 1;
        for (qsizetype number = 0; number < step(); ++number)
            answer(first + number, good.at(number));
        kind().happen(*webSession, first + step());
        settle();
    }

    static QList<QString> expectedAlert()
    {
        return endsTheSession() ? QList<QString>() : QList<QString>{u"Cannot Load Session"_s, kind().message};
    }
};

TEST_P(SessionDetailFaults, EndTheLoadWithOneAlertAndKeepWhatHasArrived)
{
    int alerts = 0;
    const auto onAlert = model->alert.addNotifier([&] { ++alerts; });
    load();
    failAtItsStep();
    EXPECT_EQ(alertOf(*model), expectedAlert());
    EXPECT_EQ(alerts, endsTheSession() ? 0 : 1);
    EXPECT_EQ(auth.isSignedIn(), !endsTheSession());
    EXPECT_FALSE(model->isLoading.value());
    EXPECT_EQ(requestCount(), step() + 1) << "nothing more is asked for";
    EXPECT_EQ(model->session().has_value(), step() > 0);
    EXPECT_EQ(model->messages()->isLoaded.value(), step() > 1);
    EXPECT_EQ(model->documents()->isLoaded.value(), step() > 2);
    if (endsTheSession())
        return; // nobody is there to be offered another try
    EXPECT_EQ(model->messages()->isMissing.value(), step() < 2);
    EXPECT_EQ(model->documents()->isMissing.value(), step() < 3);
}

TEST_P(SessionDetailFaults, LeaveAnEarlierLoadOnScreen)
{
    loadWhole();
    load();
    failAtItsStep();
    EXPECT_EQ(alertOf(*model), expectedAlert());
    EXPECT_EQ(model->session()->status(), u"scheduled"_s);
    EXPECT_EQ(model->messages()->messages().size(), 1);
    EXPECT_EQ(model->documents()->documents().size(), 1);
    EXPECT_EQ(model->notaries().size(), 2);
    EXPECT_EQ(model->proposedFee.value(), u"41.00"_s);
    if (endsTheSession())
        return; // nobody is there to be offered another try
    EXPECT_EQ(model->messages()->isMissing.value(), step() == 1);
    EXPECT_EQ(model->documents()->isMissing.value(), step() == 2);
}

TEST_P(SessionDetailFaults, AreOverWithTheNextLoad)
{
    load();
    failAtItsStep();
    model->dismissAlert();
    if (endsTheSession())
        signIn(account(u"Maya"_s, {AppRole::notary, AppRole::admin}), AppRole::admin);
    loadWhole();
    EXPECT_TRUE(alertOf(*model).isEmpty());
    EXPECT_EQ(model->session()->id, 7);
    EXPECT_TRUE(model->messages()->isLoaded.value());
    EXPECT_TRUE(model->documents()->isLoaded.value());
    EXPECT_FALSE(model->messages()->isMissing.value());
    EXPECT_FALSE(model->documents()->isMissing.value());
    EXPECT_EQ(model->notaries().size(), 2);
    EXPECT_FALSE(model->isLoading.value());
}

std::string stepAndKind(const testing::TestParamInfo<Fault>& row)
{
    const std::array steps{"Session", "Messages", "Documents", "Notaries"};
    const auto& [step, kind] = row.param;
    return steps.at(size_t(step)) + kind.name;
}

INSTANTIATE_TEST_SUITE_P(Steps, SessionDetailFaults,
    testing::Combine(testing::Range<qsizetype>(0, 4), testing::ValuesIn(failureKinds())), stepAndKind);

TEST_F(SessionDetailTest, AnAnswerThatIsNoObjectIsNoSession)
{
    load();
    answer(0, "[]");
    EXPECT_EQ(alertOf(*model),
        (QList<QString>{
            u"Cannot Load Session"_s, u"We could not complete that request. Please try again."_s}));
    EXPECT_FALSE(model->session().has_value());
}

class SessionDetailSteps : public SessionDetailTest, public testing::WithParamInterface<qsizetype>
{
protected:
    /// Begins a load and answers the steps before that of the parameter.
    void loadUpToItsStep()
    {
        load();
        const QList<QByteArray> good{scheduled, "[]", "[]"};
        for (qsizetype step = 0; step < GetParam(); ++step)
            answer(step, good.at(step));
    }

    qsizetype waiting() const { return requestCount() - 1; }
};

TEST_P(SessionDetailSteps, AfterASignOutNothingMoreIsAskedForOrShown)
{
    loadUpToItsStep();
    const bool hadMessages = model->messages()->isLoaded.value();
    auth.signOut();
    answer(waiting(), GetParam() == 0 ? scheduled : QByteArray("[{}]"));
    EXPECT_EQ(requestCount(), GetParam() + 1);
    EXPECT_EQ(model->session().has_value(), GetParam() > 0);
    EXPECT_EQ(model->messages()->isLoaded.value(), hadMessages);
    EXPECT_TRUE(model->notaries().isEmpty());
    EXPECT_FALSE(model->isLoading.value());
}

TEST_P(SessionDetailSteps, AFailureOfSomebodyWhoHasLeftIsNobodysBusiness)
{
    for (const int status : {500, 401}) {
        model = std::make_shared<SessionDetailModel>(context, 7);
        load();
        const qsizetype number = waiting();
        replaceUser(account(u"Second"_s));
        answer(number, "{}", status);
        EXPECT_TRUE(alertOf(*model).isEmpty());
        EXPECT_TRUE(auth.isSignedIn());
    }
}

TEST_P(SessionDetailSteps, OnceClosedNothingMoreIsAskedForOrShown)
{
    loadUpToItsStep();
    const bool hadDocuments = model->documents()->isLoaded.value();
    model->close();
    EXPECT_FALSE(model->isLoading.value());
    answer(waiting(), GetParam() == 0 ? scheduled : QByteArray("[{}]"));
    EXPECT_EQ(requestCount(), GetParam() + 1);
    EXPECT_EQ(model->session().has_value(), GetParam() > 0);
    EXPECT_EQ(model->documents()->isLoaded.value(), hadDocuments);
    EXPECT_TRUE(model->notaries().isEmpty());
    EXPECT_FALSE(model->isLoading.value());
}

TEST_P(SessionDetailSteps, OnceClosedAFailureIsNotShown)
{
    loadUpToItsStep();
    model->close();
    answer(waiting(), "{}", 500);
    EXPECT_TRUE(alertOf(*model).isEmpty());
}

TEST_P(SessionDetailSteps, ANewerLoadTakesOver)
{
    loadUpToItsStep();
    const qsizetype older = waiting();
    load();
    ASSERT_EQ(line(waiting()), sessionLine);
    answer(older, GetParam() == 0 ? scheduled : QByteArray("[{}]"));
    EXPECT_EQ(requestCount(), older + 2) << "the older one asks for nothing more";
    EXPECT_TRUE(model->isLoading.value());
    answerLoad(R"({"id": 7, "status": "completed"})");
    EXPECT_EQ(model->session()->status(), u"completed"_s);
    EXPECT_FALSE(model->isLoading.value());
}

TEST_P(SessionDetailSteps, LivesUntilItsAnswer)
{
    loadUpToItsStep();
    const std::weak_ptr<SessionDetailModel> gone = model;
    model.reset();
    EXPECT_FALSE(gone.expired());
    fail(waiting());
    EXPECT_TRUE(gone.expired());
}

INSTANTIATE_TEST_SUITE_P(Load, SessionDetailSteps, testing::Values(0, 1, 2, 3));

TEST_F(SessionDetailTest, OnceClosedItLoadsNothing)
{
    model->close();
    load();
    EXPECT_EQ(requestCount(), 0);
    EXPECT_FALSE(model->isLoading.value());
}

TEST_F(SessionDetailTest, WithoutAUserItSignsOutAndStops)
{
    auth.signOut();
    defaults.setString(AuthManager::activeRoleKey, u"admin"_s);
    load();
    EXPECT_EQ(requestCount(), 0);
    EXPECT_FALSE(model->isLoading.value());
    EXPECT_TRUE(alertOf(*model).isEmpty());
    EXPECT_FALSE(defaults.string(AuthManager::activeRoleKey).has_value()) << "signed out for good";
}

TEST_F(SessionDetailTest, AnOlderThreadDoesNotReplaceANewerOne)
{
    load();
    answer(0, scheduled);
    launch(model->messages()->loadMessages());
    settle();
    ASSERT_EQ(line(2), messagesLine);
    answer(2, R"([{"id": 1, "message": "Hello"}, {"id": 2, "message": "Just sent"}])");
    answer(1, R"([{"id": 1, "message": "Hello"}])");
    EXPECT_EQ(model->messages()->messages().size(), 2);
    launch(model->documents()->loadDocuments());
    settle();
    ASSERT_EQ(line(4), documentsLine);
    answer(4, R"([{"id": 1}, {"id": 2}])");
    answer(3, R"([{"id": 1}])");
    EXPECT_EQ(model->documents()->documents().size(), 2);
    EXPECT_EQ(line(5), notariesLine);
}

TEST_F(SessionDetailTest, EndsWithTheWebSession)
{
    load();
    EXPECT_EQ(line(0), sessionLine);
    webSession.reset();
    EXPECT_FALSE(model->isLoading.value());
    EXPECT_FALSE(model->session().has_value());
}

struct Cancellable
{
    const char* name;
    QByteArray status;
    bool can;
};

class SessionDetailCancellable : public SessionDetailTest, public testing::WithParamInterface<Cancellable>
{ };

TEST_P(SessionDetailCancellable, FollowsTheStatus)
{
    load();
    answer(0, R"({"id": 7, "status": ")" + GetParam().status + R"("})");
    EXPECT_EQ(line(1), messagesLine);
    EXPECT_EQ(model->canCancel(), GetParam().can);
}

INSTANTIATE_TEST_SUITE_P(Statuses, SessionDetailCancellable,
    testing::Values(Cancellable{"Requested", "requested", true}, Cancellable{"Pending", "PENDING", true},
        Cancellable{"Rescheduled", "rescheduled", true}, Cancellable{"Absent", "", true},
        Cancellable{"Completed", "completed", false}, Cancellable{"Cancelled", "cancelled", false},
        Cancellable{"WithBlanks", " pending ", false}),
    ByName());

} // namespace
