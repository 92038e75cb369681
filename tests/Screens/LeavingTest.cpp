#include "Booking/BookRemoteNotaryModel.h"
#include "DashboardTest.h"
#include "SessionDetailTest.h"
#include "SessionsModelTest.h"
#include "SettingsTest.h"

using namespace Qt::StringLiterals;

namespace {

const QList<QString> noAlert;

} // namespace

/// What is being loaded for a list, when the list is left or loaded again.
class LeavingAList : public SessionsModelTest
{
protected:
    LeavingAList() { model->beginView(); }

    /// Ends a request in the manner of a session that has been told that nobody waits for it.
    void endAbandoned(qsizetype number)
    {
        ASSERT_TRUE(webSession->isAbandoned(number));
        fail(number, TransportError::Code::Cancelled);
    }
};

TEST_F(LeavingAList, EndsItsLoadWithoutAWord)
{
    load();
    EXPECT_FALSE(webSession->isAbandoned(0));
    model->endView();
    endAbandoned(0);
    EXPECT_EQ(alertOf(*model), noAlert);
    EXPECT_FALSE(model->isLoading.value());
    EXPECT_TRUE(auth.isSignedIn());
}

TEST_F(LeavingAList, LeavesNothingBehind)
{
    load();
    model->endView();
    const std::weak_ptr<SessionsModel> weak = model;
    model.reset();
    EXPECT_FALSE(weak.expired()) << "the load still holds it";
    endAbandoned(0);
    EXPECT_TRUE(weak.expired());
}

TEST_F(LeavingAList, ThrowsAwayAnAnswerThatHasComeAllTheSame)
{
    load();
    model->endView();
    answer(0, sessions({1, 2}));
    EXPECT_TRUE(loadedIds().isEmpty());
}

TEST_F(LeavingAList, HappensWithTheLastOfItsViews)
{
    model->beginView();
    load();
    model->endView();
    EXPECT_FALSE(webSession->isAbandoned(0));
    answer(0, sessions({1}));
    EXPECT_EQ(loadedIds(), QList<qint64>{1});
}

TEST_F(LeavingAList, AsksForNothingAnyMore)
{
    model->endView();
    load();
    EXPECT_EQ(requestCount(), 0);
}

TEST_F(LeavingAList, KeepsWhatItHadForWhoComesBack)
{
    loadSessions({1, 2});
    load();
    model->endView();
    endAbandoned(1);
    model->beginView();
    EXPECT_EQ(loadedIds(), (QList<qint64>{1, 2}));
    loadSessions({3});
    EXPECT_EQ(loadedIds(), QList<qint64>{3});
}

TEST_F(LeavingAList, IsNotLoadingItAgainWhichEndsWhatIsOvertakenOnly)
{
    load();
    load();
    EXPECT_FALSE(webSession->isAbandoned(0)) << "it still counts until a newer one has come";
    answer(1, sessions({1}));
    endAbandoned(0);
    EXPECT_EQ(alertOf(*model), noAlert);
    EXPECT_EQ(loadedIds(), QList<qint64>{1});
}

TEST_F(LeavingAList, OfAnotherRoleEndsTheLoadOfTheOldOne)
{
    load();
    auth.switchRole(AppRole::notary);
    settle();
    ASSERT_EQ(requestCount(), 2);
    endAbandoned(0);
    EXPECT_FALSE(webSession->isAbandoned(1));
}

using LeavingADashboard = DashboardTest;

TEST_P(LeavingADashboard, EndsAllOfItsRequests)
{
    model->beginView();
    const qsizetype first = load();
    model->endView();
    for (qsizetype number = first; number < requestCount(); ++number) {
        EXPECT_TRUE(webSession->isAbandoned(number)) << number;
        fail(number, TransportError::Code::Cancelled);
    }
    EXPECT_EQ(alertOf(*model), noAlert);
}

TEST_P(LeavingADashboard, IsNoFailureWhichEndsTheRequestsBesideIt)
{
    const qsizetype first = load();
    fail(first);
    EXPECT_EQ(alertOf(*model).value(0), GetParam().failureTitle);
    for (qsizetype number = first + 1; number < requestCount(); ++number)
        EXPECT_TRUE(webSession->isAbandoned(number)) << number;
}

INSTANTIATE_TEST_SUITE_P(Of, LeavingADashboard, testing::ValuesIn(dashboards()),
    [](const auto& dashboard) { return std::string(dashboard.param.name); });

/// What is under way for a session, when another one is looked at.
class LeavingASession : public SessionDetailTest
{
protected:
    LeavingASession() { model->beginView(); }

    bool isAbandoned() { return webSession->isAbandoned(requestCount() - 1); }
};

TEST_F(LeavingASession, EndsWhateverItsLoadHasComeTo)
{
    const QList<QByteArray> parts{scheduled, "[]", "[]", notaries};
    for (qsizetype begun = 0; begun < parts.size(); ++begun) {
        load();
        for (qsizetype k = 0; k < begun; ++k)
            answer(requestCount() - 1, parts.at(k));
        EXPECT_FALSE(isAbandoned()) << begun;
        model->endView();
        EXPECT_TRUE(isAbandoned()) << begun;
        fail(requestCount() - 1, TransportError::Code::Cancelled);
        EXPECT_EQ(alertOf(*model), noAlert) << begun;
        model->beginView();
    }
}

TEST_F(LeavingASession, IsNotLoadingItAgainWhichEndsTheOlderLoad)
{
    load();
    load();
    EXPECT_TRUE(webSession->isAbandoned(0));
    EXPECT_FALSE(webSession->isAbandoned(1));
}

TEST_F(LeavingASession, LetsAMessageArrive)
{
    model->messages()->newMessage = u"Hello"_s;
    launch(model->messages()->sendMessage());
    model->endView();
    ASSERT_EQ(requestCount(), 1);
    EXPECT_FALSE(webSession->isAbandoned(0));
    answer(0, "{}");
    EXPECT_EQ(model->messages()->newMessage.value(), QString());
    EXPECT_EQ(requestCount(), 1) << "nobody looks at the thread";
}

TEST_F(LeavingASession, LetsEveryChangeArrive)
{
    using Operation = QCoro::Task<> (SessionDetailModel::*)();
    for (const Operation change : {&SessionDetailModel::saveNotary, &SessionDetailModel::saveAdmin,
             &SessionDetailModel::cancel, &SessionDetailModel::deleteSession}) {
        const qsizetype number = requestCount();
        start(change);
        model->endView();
        ASSERT_EQ(requestCount(), number + 1);
        EXPECT_NE(request(number).method, "GET");
        EXPECT_FALSE(webSession->isAbandoned(number));
        answer(number, "{}");
        EXPECT_EQ(requestCount(), number + 1) << "nobody looks at the session";
        model->beginView();
    }
    EXPECT_EQ(changes + deletions, 4);
}

TEST_F(LeavingASession, LetsAFileArrive)
{
    QTemporaryFile file;
    ASSERT_TRUE(file.open());
    const std::shared_ptr<SessionDocumentsModel>& documents = model->documents();
    documents->addUploads({QUrl::fromLocalFile(file.fileName())});
    launch(documents->uploadPendingFiles());
    model->endView();
    ASSERT_EQ(requestCount(), 1);
    EXPECT_FALSE(webSession->isAbandoned(0));
    answer(0, "{}");
    EXPECT_TRUE(documents->pendingUploads().isEmpty());
}

using LeavingTheSettings = SettingsTest;

TEST_F(LeavingTheSettings, EndsTheLoadOfTheProfile)
{
    model->beginView();
    launch(model->loadProfile());
    EXPECT_FALSE(webSession->isAbandoned(0));
    model->endView();
    EXPECT_TRUE(webSession->isAbandoned(0));
}

/// What is read for the sake of a save belongs to the save.
TEST_F(LeavingTheSettings, LetsASaveReadWhatItNeeds)
{
    model->beginView();
    launch(model->saveProfile());
    model->endView();
    ASSERT_EQ(line(0), u"GET /profile"_s);
    EXPECT_FALSE(webSession->isAbandoned(0));
    answer(0, R"({"full_name": "Priya"})");
    ASSERT_EQ(line(1), u"POST /profile"_s);
    EXPECT_FALSE(webSession->isAbandoned(1));
}

/// The booking form is kept while its person is elsewhere, so what fills it is still of use.
TEST_F(ScreenTest, LeavingTheBookingFormEndsNothing)
{
    signIn(account(u"Priya Raman"_s));
    const auto model = std::make_shared<BookRemoteNotaryModel>(context);
    model->beginView();
    launch(model->prefill());
    model->endView();
    EXPECT_FALSE(webSession->isAbandoned(0));
    answer(0, R"({"phone": "(555) 010-0142"})");
    EXPECT_EQ(model->contactPhone.value(), u"(555) 010-0142"_s);
}
