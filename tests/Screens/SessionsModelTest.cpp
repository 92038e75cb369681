#include "SessionsModelTest.h"

#include "Cases.h"

using namespace Qt::StringLiterals;

namespace {

const QString cannotLoad = u"Cannot Load Sessions"_s;

TEST_F(SessionsModelTest, StartsEmpty)
{
    EXPECT_TRUE(model->sessions().isEmpty());
    EXPECT_FALSE(model->selectedSession().has_value());
    EXPECT_FALSE(model->isLoading.value());
    EXPECT_EQ(model->search.value(), QString());
    EXPECT_EQ(model->statusFilter.value(), QString());
    EXPECT_TRUE(alertOf(*model).isEmpty());
    EXPECT_EQ(requestCount(), 0);
}

TEST_F(SessionsModelTest, OffersTheStatuses)
{
    QList<QString> statuses;
    for (const SessionsModel::StatusOption& option : SessionsModel::statuses())
        statuses += option.value;
    EXPECT_EQ(statuses,
        (QList<QString>{
            u""_s, u"requested"_s, u"scheduled"_s, u"rescheduled"_s, u"completed"_s, u"cancelled"_s}));
    EXPECT_EQ(SessionsModel::statuses().constFirst().label, u"All Statuses"_s);
    EXPECT_EQ(SessionsModel::searchPlaceholder(), u"Search name, signer, email, status, document"_s);
}

struct Scope
{
    AppRole role;
    QString line;
    QString subtitle;
};

void PrintTo(const Scope& scope, std::ostream* out)
{
    *out << rawValue(scope.role).toStdString();
}

class SessionsScope : public SessionsModelTest, public testing::WithParamInterface<Scope>
{ };

TEST_P(SessionsScope, FollowsTheActiveRole)
{
    model.reset();
    replaceUser(account(u"All"_s, {AppRole::business, AppRole::notary, AppRole::admin}), GetParam().role);
    model = std::make_shared<SessionsModel>(context);
    load();
    ASSERT_EQ(requestCount(), 1);
    EXPECT_EQ(line(0), GetParam().line);
    EXPECT_EQ(header(0, "Authorization"), "Bearer " + auth.user.value()->idToken.toUtf8());
    EXPECT_EQ(model->subtitle(), GetParam().subtitle);
}

INSTANTIATE_TEST_SUITE_P(Roles, SessionsScope,
    testing::Values(
        Scope{AppRole::client, u"GET /remote-notary/sessions"_s, u"Your remote notary sessions."_s},
        Scope{AppRole::business, u"GET /remote-notary/sessions?scope=business"_s,
            u"Business remote sessions."_s},
        Scope{AppRole::notary, u"GET /remote-notary/sessions?scope=notary_assigned"_s,
            u"Assigned and open remote notary sessions."_s},
        Scope{AppRole::admin, u"GET /remote-notary/sessions?scope=admin_all"_s,
            u"All remote notary sessions."_s}),
    [](const auto& row) { return rawValue(row.param.role).toStdString(); });

TEST_F(SessionsModelTest, ShowsTheLatestFirstAndKeepsTheOrderOfEqualTimes)
{
    load();
    EXPECT_TRUE(model->isLoading.value());
    answer(0, R"({"sessions": [
        {"id": 1, "scheduled_date": "2025-05-01"},
        {"id": 2, "scheduled_date": "2025-06-01", "scheduled_time": "9:00 AM"},
        {"id": 3, "scheduled_date": "2025-05-01"},
        {"id": 4},
        {"id": 5, "preferred_date": "2025-05-01"},
        {"id": 6, "created_at": "2025-05-20"},
        {"id": 7, "scheduled_date": "2025-06-01", "scheduled_time": "10:00 AM"}]})");
    // By plain text: "Date pending" comes before every digit, "9:00" before "10:00".
    EXPECT_EQ(loadedIds(), (QList<qint64>{4, 2, 7, 6, 1, 3, 5}));
    EXPECT_FALSE(model->isLoading.value());
    EXPECT_EQ(model->rows().rowCount(), 7);
    EXPECT_EQ(model->rows().index(0).data(RowListModel::IdRole).toLongLong(), 4);
}

TEST_F(SessionsModelTest, KeepsTheOrderOfEqualTimesInALongList)
{
    // Every third session has the later of two times; within each time the ids rise.
    QByteArray json = "[";
    QList<qint64> later, earlier;
    for (int id = 1; id <= 200; ++id) {
        const bool isLater = id % 3 == 0;
        (isLater ? later : earlier) += id;
        json += id > 1 ? "," : "";
        json += R"({"id": )" + QByteArray::number(id) + R"(, "scheduled_date": ")"
            + (isLater ? "2025-06-02" : "2025-06-01") + R"("})";
    }
    load();
    answer(0, json + "]");
    EXPECT_EQ(loadedIds(), later + earlier);
}

TEST_F(SessionsModelTest, SelectsTheFirstOfTheList)
{
    loadSessions({4, 2, 9});
    EXPECT_EQ(selectedId(), 4);
    EXPECT_FALSE(router.selectedSessionId.value().has_value()) << "nobody chose it";
}

TEST_F(SessionsModelTest, SelectsNothingInAnEmptyList)
{
    loadSessions({});
    EXPECT_EQ(selectedId(), std::nullopt);
    EXPECT_FALSE(model->isLoading.value());
}

TEST_F(SessionsModelTest, SelectsTheSessionThatTheRouterPointsAt)
{
    router.open(AppSection::sessions, 2);
    loadSessions({4, 2, 9});
    EXPECT_EQ(selectedId(), 2);
}

TEST_F(SessionsModelTest, SelectsTheFirstWhereTheRouterPointsNowhere)
{
    router.open(AppSection::sessions, 77);
    loadSessions({4, 2, 9});
    EXPECT_EQ(selectedId(), 4);
    EXPECT_EQ(router.selectedSessionId.value(), 77);
    loadSessions({77, 4});
    EXPECT_EQ(selectedId(), 77) << "as soon as it is there";
}

TEST_F(SessionsModelTest, AReloadKeepsTheSelection)
{
    loadSessions({4, 2, 9});
    loadSessions({8, 9, 4});
    EXPECT_EQ(selectedId(), 4);
    model->select(9);
    loadSessions({1, 9, 4});
    EXPECT_EQ(selectedId(), 9);
}

TEST_F(SessionsModelTest, AReloadBringsTheSelectedSessionsNewContents)
{
    loadSessions({4, 2});
    int changes = 0;
    QObject::connect(model.get(), &SessionsModel::selectionChanged, model.get(), [&] { ++changes; });
    load();
    answer(1, R"([{"id": 4, "status": "completed"}])");
    EXPECT_EQ(model->selectedSession()->status(), u"completed"_s);
    EXPECT_GE(changes, 1);
}

TEST_F(SessionsModelTest, ASelectedSessionThatLeftTheListStaysSelected)
{
    loadSessions({4, 2});
    loadSessions({2, 9});
    EXPECT_EQ(selectedId(), 4);
}

TEST_F(SessionsModelTest, AChoicePointsTheRouterSoThatAReloadKeepsIt)
{
    router.open(AppSection::sessions, 2);
    loadSessions({4, 2, 9});
    int changes = 0;
    QObject::connect(model.get(), &SessionsModel::selectionChanged, model.get(), [&] { ++changes; });
    model->select(9);
    EXPECT_EQ(selectedId(), 9);
    EXPECT_EQ(router.selectedSessionId.value(), 9);
    EXPECT_EQ(changes, 1);
    loadSessions({4, 2, 9});
    EXPECT_EQ(selectedId(), 9);
}

TEST_F(SessionsModelTest, AChoiceOutlivesASignOut)
{
    loadSessions({4, 2});
    model->select(2);
    auth.signOut();
    EXPECT_EQ(router.selectedSessionId.value(), 2);
    model.reset();
    signIn(account(u"Second"_s));
    model = std::make_shared<SessionsModel>(context);
    loadSessions({4, 2});
    EXPECT_EQ(selectedId(), 2) << "of those whom the next person may see";
}

TEST_F(SessionsModelTest, ChoosingTheSelectedSessionHoldsIt)
{
    router.open(AppSection::sessions, 77);
    loadSessions({4, 2});
    int changes = 0;
    QObject::connect(model.get(), &SessionsModel::selectionChanged, model.get(), [&] { ++changes; });
    model->select(4);
    EXPECT_EQ(changes, 0);
    loadSessions({77, 4});
    EXPECT_EQ(selectedId(), 4);
}

TEST_F(SessionsModelTest, AnUnknownChoiceChangesNothing)
{
    loadSessions({4, 2});
    model->select(77);
    EXPECT_EQ(selectedId(), 4);
    EXPECT_FALSE(router.selectedSessionId.value().has_value());
}

TEST_F(SessionsModelTest, WithoutAUserItSignsOutAndStops)
{
    auth.signOut();
    defaults.setString(AuthManager::activeRoleKey, u"admin"_s);
    load();
    EXPECT_EQ(requestCount(), 0);
    EXPECT_FALSE(model->isLoading.value());
    EXPECT_TRUE(alertOf(*model).isEmpty());
    EXPECT_FALSE(defaults.string(AuthManager::activeRoleKey).has_value()) << "signed out for good";
}

TEST_F(SessionsModelTest, AFailureIsShownAndTheListStays)
{
    loadSessions({4, 2});
    load();
    answer(1, R"({"message": "Try later."})", 500);
    EXPECT_EQ(alertOf(*model), (QList<QString>{cannotLoad, u"Try later."_s}));
    EXPECT_EQ(loadedIds(), (QList<qint64>{4, 2}));
    EXPECT_EQ(model->rows().rowCount(), 2);
    EXPECT_EQ(selectedId(), 4);
    EXPECT_FALSE(model->isLoading.value());
}

TEST_F(SessionsModelTest, SessionExpirySignsOutWithoutAWord)
{
    load();
    answer(0, "{}", 401);
    EXPECT_FALSE(auth.isSignedIn());
    EXPECT_TRUE(alertOf(*model).isEmpty());
    EXPECT_FALSE(model->isLoading.value());
}

TEST_F(SessionsModelTest, AnOlderLoadDoesNotReplaceANewerOne)
{
    load();
    load();
    answer(1, sessions({2}));
    EXPECT_FALSE(model->isLoading.value());
    answer(0, sessions({1}));
    EXPECT_EQ(loadedIds(), QList<qint64>{2});
}

TEST_F(SessionsModelTest, AnOlderLoadCountsUntilTheNewerOneCame)
{
    load();
    load();
    answer(0, sessions({1}));
    EXPECT_EQ(loadedIds(), QList<qint64>{1});
    EXPECT_TRUE(model->isLoading.value());
    answer(1, sessions({2}));
    EXPECT_EQ(loadedIds(), QList<qint64>{2});
    EXPECT_FALSE(model->isLoading.value());
}

TEST_F(SessionsModelTest, AnOlderLoadCountsWhereANewerOneFailed)
{
    load();
    load();
    answer(1, "{}", 500);
    EXPECT_EQ(alertOf(*model).value(0), cannotLoad);
    answer(0, sessions({1}));
    EXPECT_EQ(loadedIds(), QList<qint64>{1});
}

TEST_F(SessionsModelTest, AFailureAfterANewerLoadIsNobodysBusiness)
{
    load();
    load();
    answer(1, sessions({2}));
    answer(0, "{}", 500);
    EXPECT_TRUE(alertOf(*model).isEmpty());
    EXPECT_EQ(loadedIds(), QList<qint64>{2});
}

TEST_F(SessionsModelTest, ALateListAfterASignOutShowsNothing)
{
    load();
    auth.signOut();
    answer(0, sessions({4}));
    EXPECT_TRUE(loadedIds().isEmpty());
    EXPECT_EQ(selectedId(), std::nullopt);
    EXPECT_FALSE(model->isLoading.value());
    EXPECT_EQ(requestCount(), 1);
}

TEST_F(SessionsModelTest, ALateListForSomebodyElseShowsNothing)
{
    load();
    replaceUser(account(u"Second"_s));
    answer(0, sessions({4}));
    EXPECT_TRUE(loadedIds().isEmpty());
}

TEST_F(SessionsModelTest, ALateFailureForSomebodyElseShowsNothingAndSignsNobodyOut)
{
    for (const int status : {500, 401}) {
        load();
        const qsizetype number = requestCount() - 1;
        replaceUser(account(u"Second"_s));
        answer(number, "{}", status);
        EXPECT_TRUE(alertOf(*model).isEmpty());
        EXPECT_TRUE(auth.isSignedIn());
    }
}

TEST_F(SessionsModelTest, AnAnswerParsedWhileTheUserLeavesShowsNothing)
{
    load();
    webSession->answer(0, 200, sessions({4}));
    auth.signOut();
    settle();
    EXPECT_TRUE(loadedIds().isEmpty());
}

TEST_F(SessionsModelTest, LivesUntilItsAnswer)
{
    const std::weak_ptr<SessionsModel> gone = model;
    launch(model->load());
    model.reset();
    EXPECT_FALSE(gone.expired());
    answer(0, sessions({4}));
    EXPECT_TRUE(gone.expired());
}

TEST_F(SessionsModelTest, OutlivesTheEndOfTheWebSession)
{
    load();
    EXPECT_EQ(request(0).method, "GET");
    webSession.reset();
    EXPECT_FALSE(model->isLoading.value());
    EXPECT_TRUE(loadedIds().isEmpty());
}

} // namespace
