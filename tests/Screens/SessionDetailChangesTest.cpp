#include "SessionDetailTest.h"

#include "Cases.h"

using namespace Qt::StringLiterals;

namespace {

using Work = SessionDetailModel::Work;
using Unfinished = LeaveGuard::Unfinished;

struct Change
{
    const char* name;
    QCoro::Task<> (SessionDetailModel::*operation)();
    Work work;
    QString line;
    QByteArray body; ///< empty: none at all
    QString failureTitle;
    QList<QString> success; ///< the alert after a success
};

const QByteArray common = R"("status": "scheduled", "confirmed_date": "2026-03-12",
    "confirmed_time": "2:30 PM", "scheduled_date": "2026-03-12", "scheduled_time": "2:30 PM",
    "proposed_fee": "41.00", "status_note": "Confirmed.")";

const Change notaryUpdate{"NotaryUpdate", &SessionDetailModel::saveNotary, Work::notaryUpdate,
    u"POST /notary/remote-notary/sessions/7/status"_s,
    "{" + common + R"(, "requires_witness": true, "witness_name": "Elena"})", u"Cannot Save Update"_s,
    {u"Saved"_s, u"Notary update was saved."_s}};
const Change adminChanges{"AdminChanges", &SessionDetailModel::saveAdmin, Work::adminChanges,
    u"POST /admin/remote-notary/sessions/7/assign"_s, "{" + common + R"(, "assigned_notary_id": 12})",
    u"Cannot Save Session"_s, {u"Saved"_s, u"Session was updated."_s}};
const Change cancellation{"Cancellation", &SessionDetailModel::cancel, Work::cancellation,
    u"POST /remote-notary/sessions/7/cancel"_s, {}, u"Cannot Cancel Session"_s, {}};
const Change deletion{"Deletion", &SessionDetailModel::deleteSession, Work::deletion,
    u"DELETE /admin/records/7"_s, R"({"record_type": "remote", "source": "remote_notary_sessions"})",
    u"Cannot Delete Session"_s, {}};

class SessionDetailChanges : public SessionDetailTest, public testing::WithParamInterface<Change>
{
protected:
    SessionDetailChanges()
    {
        loadWhole();
        leaving.watch(model.get(), [this] { return model->unfinished(); });
    }

    /// \returns the number of the request with which the change goes out
    qsizetype begin()
    {
        start(GetParam().operation);
        return requestCount() - 1;
    }

    bool isDeletion() const { return GetParam().work == Work::deletion; }
};

TEST_P(SessionDetailChanges, GoOutAsTheyShould)
{
    const qsizetype number = begin();
    EXPECT_EQ(line(number), GetParam().line);
    EXPECT_EQ(header(number, "Authorization"), "Bearer maya-token");
    if (GetParam().body.isEmpty())
        EXPECT_EQ(text(number), QByteArray());
    else
        EXPECT_EQ(body(number), object(GetParam().body));
    EXPECT_EQ(model->work.value(), GetParam().work);
    EXPECT_EQ(model->unfinished(), Unfinished::work);
    EXPECT_EQ(changes + deletions, 0);
}

TEST_P(SessionDetailChanges, TellAboutTheirSuccessAndLoadAgain)
{
    const qsizetype number = begin();
    answer(number, "{}");
    EXPECT_EQ(alertOf(*model), GetParam().success);
    EXPECT_EQ(model->work.value(), Work::none);
    EXPECT_EQ(changes, isDeletion() ? 0 : 1);
    EXPECT_EQ(deletions, isDeletion() ? 1 : 0);
    if (isDeletion()) {
        EXPECT_EQ(requestCount(), number + 1) << "what is deleted is not loaded again";
        EXPECT_FALSE(model->isLoading.value());
        return;
    }
    EXPECT_EQ(linesFrom(number + 1), QList<QString>{u"GET /remote-notary/sessions/7"_s});
    answerLoad(R"({"id": 7, "status": "cancelled"})");
    EXPECT_EQ(model->session()->status(), u"cancelled"_s);
    EXPECT_EQ(model->status.value(), u"cancelled"_s);
    EXPECT_EQ(model->unfinished(), Unfinished::nothing);
    EXPECT_EQ(alertOf(*model), GetParam().success);
}

TEST_P(SessionDetailChanges, ShowTheirFailureOnceAndCanBeTriedAgain)
{
    int alerts = 0;
    const auto onAlert = model->alert.addNotifier([&] { ++alerts; });
    model->witnessName = u"Half"_s;
    answer(begin(), R"({"message": "Try later."})", 500);
    EXPECT_EQ(alertOf(*model), (QList<QString>{GetParam().failureTitle, u"Try later."_s}));
    EXPECT_EQ(alerts, 1);
    EXPECT_EQ(model->work.value(), Work::none);
    EXPECT_EQ(changes + deletions, 0);
    EXPECT_EQ(model->witnessName.value(), u"Half"_s);
    EXPECT_TRUE(model->hasEdits());
    EXPECT_FALSE(model->isLoading.value());

    const qsizetype again = begin();
    EXPECT_EQ(line(again), GetParam().line);
    answer(again, "{}");
    EXPECT_EQ(changes + deletions, 1);
    if (!isDeletion())
        answerLoad();
}

TEST_P(SessionDetailChanges, ALostConnectionIsAFailure)
{
    fail(begin());
    EXPECT_EQ(alertOf(*model),
        (QList<QString>{GetParam().failureTitle,
            u"Connection problem. Please check your internet connection and try again."_s}));
    EXPECT_EQ(changes + deletions, 0);
}

TEST_P(SessionDetailChanges, GoOutOnceHoweverOftenTheyAreAskedFor)
{
    const qsizetype number = begin();
    for (const Change& other : {notaryUpdate, adminChanges, cancellation, deletion})
        start(other.operation);
    EXPECT_EQ(requestCount(), number + 1);
    answer(number, "{}", 500);
    EXPECT_EQ(requestCount(), number + 1);
}

TEST_P(SessionDetailChanges, AnExpiredSessionSignsOutWithoutAWord)
{
    const qsizetype number = begin();
    answer(number, "{}", 401);
    EXPECT_FALSE(auth.isSignedIn());
    EXPECT_TRUE(alertOf(*model).isEmpty());
    EXPECT_EQ(model->work.value(), Work::none);
    EXPECT_EQ(changes + deletions, 0);
    EXPECT_EQ(requestCount(), number + 1);
}

TEST_P(SessionDetailChanges, WhatArrivesAfterASignOutIsNobodysBusiness)
{
    for (const int status : {200, 500, 401}) {
        const qsizetype number = begin();
        replaceUser(account(u"Second"_s, {AppRole::admin}));
        answer(number, "{}", status);
        EXPECT_TRUE(alertOf(*model).isEmpty()) << status;
        EXPECT_EQ(changes + deletions, 0) << status;
        EXPECT_EQ(requestCount(), number + 1) << status;
        EXPECT_EQ(model->work.value(), Work::none) << status;
        EXPECT_TRUE(auth.isSignedIn()) << status;
    }
}

TEST_P(SessionDetailChanges, WithoutAUserTheySignOutAndStop)
{
    const qsizetype before = requestCount();
    auth.signOut();
    defaults.setString(AuthManager::activeRoleKey, u"admin"_s);
    start(GetParam().operation);
    EXPECT_EQ(requestCount(), before);
    EXPECT_EQ(model->work.value(), Work::none);
    EXPECT_TRUE(alertOf(*model).isEmpty());
    EXPECT_FALSE(defaults.string(AuthManager::activeRoleKey).has_value()) << "signed out for good";
}

TEST_P(SessionDetailChanges, ArriveAndAreToldAboutAlsoWhenTheDetailIsClosed)
{
    const qsizetype number = begin();
    model->close();
    answer(number, "{}");
    EXPECT_EQ(changes, isDeletion() ? 0 : 1);
    EXPECT_EQ(deletions, isDeletion() ? 1 : 0);
    EXPECT_EQ(requestCount(), number + 1) << "a closed detail loads nothing";
}

TEST_P(SessionDetailChanges, LiveUntilTheirAnswer)
{
    const qsizetype number = begin();
    leaving.forget();
    const std::weak_ptr<SessionDetailModel> gone = model;
    model.reset();
    EXPECT_FALSE(gone.expired());
    fail(number);
    EXPECT_TRUE(gone.expired());
}

TEST_P(SessionDetailChanges, WhoWaitsToLeaveLeavesAfterTheSuccess)
{
    const qsizetype number = begin();
    bool left = false;
    leaving.leave([this, &left] {
        left = true;
        model->close();
    });
    EXPECT_EQ(leaving.question.value()->title, u"Still Saving"_s);
    EXPECT_FALSE(left);
    answer(number, "{}");
    EXPECT_TRUE(left);
    EXPECT_FALSE(leaving.question.value().has_value());
    EXPECT_EQ(requestCount(), number + 1) << "what has been left is not loaded again";
}

TEST_P(SessionDetailChanges, WhoWaitsToLeaveStaysWithTheFailure)
{
    const qsizetype number = begin();
    bool left = false;
    leaving.leave([&] { left = true; });
    answer(number, "{}", 500);
    EXPECT_FALSE(left);
    EXPECT_FALSE(leaving.question.value().has_value());
    EXPECT_EQ(alertOf(*model).value(0), GetParam().failureTitle);
}

TEST_P(SessionDetailChanges, AFailureOfAClosedDetailAnswersNoQuestionOfTheNext)
{
    const qsizetype number = begin();
    model->close();
    QObject next;
    leaving.watch(&next, [] { return Unfinished::edits; });
    leaving.leave([] {});
    answer(number, "{}", 500);
    EXPECT_TRUE(leaving.question.value().has_value());
}

TEST_P(SessionDetailChanges, OutlastALoadThatBeganBeforeThem)
{
    load();
    const qsizetype reload = requestCount() - 1;
    const qsizetype number = begin();
    answer(number, "{}");
    answer(reload, R"({"id": 7, "status": "requested", "proposed_fee": "1"})");
    EXPECT_EQ(model->proposedFee.value(), u"41.00"_s) << "older than the change";
    if (!isDeletion())
        answerLoad();
}

INSTANTIATE_TEST_SUITE_P(Kinds, SessionDetailChanges,
    testing::Values(notaryUpdate, adminChanges, cancellation, deletion), ByName());

TEST_F(SessionDetailTest, SavesWhatIsInTheFieldsUntrimmed)
{
    loadWhole();
    model->status = u"rescheduled"_s;
    model->confirmedDate = u" 2026-04-01 "_s;
    model->confirmedTime = QString();
    model->proposedFee = u"fifty"_s;
    model->statusNote = u"<b>Bold</b> \"quoted\"\n"_s;
    model->requiresWitness = false;
    model->witnessName = QString();
    model->selectedNotaryId = 13;
    const QByteArray written = R"("status": "rescheduled", "confirmed_date": " 2026-04-01 ",
        "confirmed_time": "", "scheduled_date": " 2026-04-01 ", "scheduled_time": "", "proposed_fee": "fifty",
        "status_note": "<b>Bold</b> \"quoted\"\n")";
    start(&SessionDetailModel::saveNotary);
    EXPECT_EQ(body(requestCount() - 1),
        object("{" + written + R"(, "requires_witness": false, "witness_name": ""})"));
    fail(requestCount() - 1);
    start(&SessionDetailModel::saveAdmin);
    EXPECT_EQ(body(requestCount() - 1), object("{" + written + R"(, "assigned_notary_id": 13})"));
    fail(requestCount() - 1);
    model->selectedNotaryId = 0;
    start(&SessionDetailModel::saveAdmin);
    EXPECT_EQ(body(requestCount() - 1), object("{" + written + "}"));
    fail(requestCount() - 1);
}

TEST_F(SessionDetailTest, WhatIsTypedDuringASaveStaysAnEdit)
{
    loadWhole();
    model->statusNote = u"First"_s;
    model->proposedFee = u"50"_s;
    start(&SessionDetailModel::saveNotary);
    model->statusNote = u"First and second"_s;
    answer(requestCount() - 1, "{}");
    EXPECT_TRUE(model->hasEdits());
    answerLoad(R"({"id": 7, "status": "scheduled", "status_note": "First", "proposed_fee": "50.00"})");
    EXPECT_EQ(model->statusNote.value(), u"First and second"_s);
    EXPECT_EQ(model->proposedFee.value(), u"50.00"_s) << "as the bridge writes it";
    EXPECT_TRUE(model->hasEdits());
}

TEST_F(SessionDetailTest, ASaveLeavesTheEditsThatItDoesNotCarry)
{
    loadWhole();
    model->selectedNotaryId = 13;
    model->witnessName = u"Somebody else"_s;
    start(&SessionDetailModel::saveNotary);
    answer(requestCount() - 1, "{}");
    EXPECT_TRUE(model->hasEdits()) << "the notary is not assigned yet";
    answerLoad(R"({"id": 7, "status": "scheduled", "assigned_notary_id": 12})");
    EXPECT_EQ(model->selectedNotaryId.value(), 13);

    start(&SessionDetailModel::saveAdmin);
    answer(requestCount() - 1, "{}");
    EXPECT_FALSE(model->hasEdits());
    answerLoad();
}

TEST_F(SessionDetailTest, AfterASaveNothingIsUnsavedEvenIfTheReloadFails)
{
    loadWhole();
    model->statusNote = u"Saved"_s;
    start(&SessionDetailModel::saveAdmin);
    answer(requestCount() - 1, "{}");
    fail(requestCount() - 1);
    EXPECT_FALSE(model->hasEdits());
    EXPECT_EQ(model->statusNote.value(), u"Saved"_s);
    EXPECT_EQ(alertOf(*model).value(0), u"Cannot Load Session"_s);
}

TEST_F(SessionDetailTest, AsksCalmlyBeforeItCancelsOrDeletes)
{
    EXPECT_EQ(SessionDetailModel::cancelQuestion(),
        (Question{u"Cancel Session?"_s, u"Everyone who takes part will see this session as cancelled."_s,
            u"Cancel Session"_s, u"Keep Session"_s}));
    EXPECT_EQ(SessionDetailModel::deleteQuestion(),
        (Question{u"Delete Session?"_s,
            u"This session will be removed for everyone. This cannot be undone."_s, u"Delete Session"_s,
            u"Keep Session"_s}));
}

} // namespace
