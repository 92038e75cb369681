#include "DashboardTest.h"

#include "Launch.h"

using namespace Qt::StringLiterals;

namespace {

class DashboardModelTest : public DashboardTest
{ };

TEST_P(DashboardModelTest, SaysWhatItIs)
{
    const DashboardModel::Texts texts = model->texts();
    EXPECT_EQ(texts.title, GetParam().title);
    EXPECT_EQ(texts.subtitle, GetParam().subtitle);
    QList<QString> tiles;
    for (const DashboardModel::Tile& tile : model->tiles())
        tiles += tile.title + u" ("_s + tile.systemImage + u')';
    EXPECT_EQ(tiles, GetParam().tiles);
}

TEST_P(DashboardModelTest, StartsWithNothing)
{
    EXPECT_EQ(values(), valuesFor(nothing));
    EXPECT_FALSE(model->isLoading.value());
    EXPECT_TRUE(alertOf(*model).isEmpty());
    EXPECT_EQ(requestCount(), 0);
}

TEST_P(DashboardModelTest, OffersItsShortcuts)
{
    QList<QString> shortcuts;
    for (const Shortcut& shortcut : model->shortcuts())
        shortcuts += shortcut.title + u" ("_s + shortcut.systemImage
            + (shortcut.isPrimary ? u")! "_s : u") "_s)
            + (shortcut.section ? rawValue(*shortcut.section) : u"again"_s);
    EXPECT_EQ(shortcuts, GetParam().shortcuts);
}

TEST_P(DashboardModelTest, AShortcutLeadsToItsSectionWithNoSessionSelectedOrLoadsAgain)
{
    for (const Shortcut& shortcut : model->shortcuts()) {
        router.selectedSection = AppSection::dashboard;
        router.selectedSessionId = 42;
        const qsizetype before = requestCount();
        model->run(shortcut);
        settle();
        if (shortcut.section) {
            EXPECT_EQ(router.selectedSection.value(), *shortcut.section);
            EXPECT_FALSE(router.selectedSessionId.value().has_value());
            EXPECT_EQ(requestCount(), before);
        } else {
            EXPECT_EQ(router.selectedSection.value(), AppSection::dashboard);
            EXPECT_EQ(requestCount(), before + perLoad());
            for (qsizetype i = before; i < requestCount(); ++i)
                EXPECT_FALSE(line(i).isEmpty());
        }
    }
}

TEST_P(DashboardModelTest, MakesAllOfItsRequestsAtOnce)
{
    load();
    ASSERT_EQ(requestCount(), perLoad());
    for (qsizetype i = 0; i < perLoad(); ++i) {
        EXPECT_EQ(line(i), GetParam().requests[i]);
        EXPECT_EQ(header(i, "Authorization"), "Bearer jordanellis-token");
    }
    EXPECT_TRUE(model->isLoading.value());
}

TEST_P(DashboardModelTest, ShowsWhatCameWhenAllHasCome)
{
    int announcements = 0;
    QObject::connect(model.get(), &DashboardModel::loaded, model.get(), [&] { ++announcements; });
    load();
    for (qsizetype i = 0; i < perLoad(); ++i) {
        EXPECT_EQ(values(), valuesFor(nothing)) << "after " << i << " answers";
        EXPECT_TRUE(model->isLoading.value());
        EXPECT_EQ(announcements, 0);
        answer(i, records(few[i]));
    }
    EXPECT_EQ(values(), valuesFor(few));
    EXPECT_FALSE(model->isLoading.value());
    EXPECT_EQ(announcements, 1);
}

TEST_P(DashboardModelTest, AnswersMayComeInAnyOrder)
{
    load();
    for (qsizetype i = perLoad() - 1; i >= 0; --i)
        answer(i, records(few[i]));
    EXPECT_EQ(values(), valuesFor(few));
    EXPECT_FALSE(model->isLoading.value());
}

TEST_P(DashboardModelTest, TakesListsOfEveryShapeAndNoneForEmpty)
{
    answerAll(load(), few);
    const qsizetype first = load();
    const QByteArrayList shapes{"{}", R"({"data": "none"})", R"([1, 2])"};
    for (qsizetype i = 0; i < perLoad(); ++i)
        answer(first + i, shapes[i]);
    EXPECT_EQ(values(), valuesFor(nothing)) << "an answer without a list is an empty one";
    EXPECT_TRUE(alertOf(*model).isEmpty());
}

TEST_P(DashboardModelTest, CountsLongLists)
{
    answerAll(load(), many);
    EXPECT_EQ(values(), valuesFor(many)) << "written without grouping";
}

TEST_P(DashboardModelTest, ANewLoadReplacesEveryList)
{
    answerAll(load(), many);
    answerAll(load(), few);
    EXPECT_EQ(values(), valuesFor(few));
}

TEST_P(DashboardModelTest, WithoutAUserItSignsOutAndStops)
{
    auth.signOut();
    defaults.setString(AuthManager::activeRoleKey, u"admin"_s);
    load();
    EXPECT_EQ(requestCount(), 0);
    EXPECT_FALSE(model->isLoading.value());
    EXPECT_TRUE(alertOf(*model).isEmpty());
    EXPECT_FALSE(defaults.string(AuthManager::activeRoleKey).has_value()) << "signed out for good";
}

TEST_P(DashboardModelTest, NeverMixesTwoLoads)
{
    const qsizetype older = load();
    const qsizetype newer = load();
    // The answers of the two loads come by turns; the older load is whole first.
    for (qsizetype i = 0; i < perLoad(); ++i) {
        EXPECT_EQ(values(), valuesFor(nothing));
        answer(older + i, records(many[i]));
        if (i + 1 < perLoad())
            answer(newer + i, records(few[i]));
    }
    EXPECT_EQ(values(), valuesFor(many)) << "each load stores what it brings";
    EXPECT_TRUE(model->isLoading.value());
    answer(newer + perLoad() - 1, records(few[perLoad() - 1]));
    EXPECT_EQ(values(), valuesFor(few));
    EXPECT_FALSE(model->isLoading.value());
}

TEST_P(DashboardModelTest, AnOlderLoadDoesNotReplaceANewerOne)
{
    const qsizetype older = load();
    const qsizetype newer = load();
    answerAll(newer, few);
    EXPECT_FALSE(model->isLoading.value());
    answerAll(older, many);
    EXPECT_EQ(values(), valuesFor(few));
}

TEST_P(DashboardModelTest, AFailureBesideANewerLoadIsToldAndHurtsNothing)
{
    const qsizetype older = load();
    const qsizetype newer = load();
    answer(older, R"({"message": "Try later."})", 500);
    EXPECT_EQ(alertOf(*model), (QList<QString>{model->texts().failureTitle, u"Try later."_s}));
    EXPECT_TRUE(model->isLoading.value());
    answerAll(newer, few);
    EXPECT_EQ(values(), valuesFor(few));
    for (qsizetype i = 1; i < perLoad(); ++i)
        answer(older + i, records(many[i]));
    EXPECT_EQ(values(), valuesFor(few));
}

TEST_P(DashboardModelTest, AFailureAfterANewerLoadIsNobodysBusiness)
{
    const qsizetype older = load();
    answerAll(load(), few);
    answer(older, "{}", 500);
    EXPECT_TRUE(alertOf(*model).isEmpty());
    EXPECT_EQ(values(), valuesFor(few));
    for (qsizetype i = 1; i < perLoad(); ++i)
        answer(older + i, records(many[i]));
}

TEST_P(DashboardModelTest, AnOlderLoadCountsWhereANewerOneFailed)
{
    const qsizetype older = load();
    const qsizetype newer = load();
    answer(newer, "{}", 500);
    answerAll(older, many);
    EXPECT_EQ(values(), valuesFor(many));
    for (qsizetype i = 1; i < perLoad(); ++i)
        answer(newer + i, records(few[i]));
    EXPECT_EQ(values(), valuesFor(many));
}

TEST_P(DashboardModelTest, ASignOutWhileLoadingStoresNothing)
{
    for (qsizetype answered = 0; answered < perLoad(); ++answered) {
        const qsizetype first = load();
        for (qsizetype i = 0; i < answered; ++i)
            answer(first + i, records(few[i]));
        auth.signOut();
        for (qsizetype i = answered; i < perLoad(); ++i)
            answer(first + i, records(few[i]));
        EXPECT_EQ(values(), valuesFor(nothing)) << answered << " answers before";
        EXPECT_FALSE(model->isLoading.value());
        signIn(account(u"Jordan Ellis"_s, {GetParam().role}), GetParam().role);
    }
}

TEST_P(DashboardModelTest, ASignOutWhileTheListsArePreparedStoresNothing)
{
    const qsizetype first = load();
    for (qsizetype i = 0; i < perLoad(); ++i)
        webSession->answer(first + i, 200, records(few[i]));
    auth.signOut();
    settle();
    EXPECT_EQ(values(), valuesFor(nothing));
}

TEST_P(DashboardModelTest, LateAnswersForSomebodyElseChangeNothing)
{
    for (const int status : {200, 401, 500}) {
        const qsizetype first = load();
        replaceUser(account(u"Second"_s, {GetParam().role}), GetParam().role);
        for (qsizetype i = 0; i < perLoad(); ++i)
            answer(first + i, status == 200 ? records(few[i]) : QByteArray("{}"), status);
        EXPECT_EQ(values(), valuesFor(nothing)) << status;
        EXPECT_TRUE(alertOf(*model).isEmpty()) << status;
        EXPECT_TRUE(auth.isSignedIn()) << status;
    }
}

TEST_P(DashboardModelTest, LivesUntilItsAnswers)
{
    const std::weak_ptr<DashboardModel> gone = model;
    const qsizetype first = load();
    model.reset();
    EXPECT_FALSE(gone.expired());
    answerAll(first, few);
    EXPECT_TRUE(gone.expired());
}

TEST_P(DashboardModelTest, MayGoBeforeTheRestOfAFailedLoadComes)
{
    const std::weak_ptr<DashboardModel> gone = model;
    const qsizetype first = load();
    answer(first, "{}", 500);
    model.reset();
    EXPECT_TRUE(gone.expired());
    for (qsizetype i = 1; i < perLoad(); ++i)
        answer(first + i, records(few[i]));
}

TEST_P(DashboardModelTest, OutlivesTheEndOfTheWebSession)
{
    load();
    for (qsizetype i = 0; i < perLoad(); ++i)
        EXPECT_EQ(request(i).method, "GET");
    webSession.reset();
    EXPECT_FALSE(model->isLoading.value());
    EXPECT_EQ(values(), valuesFor(nothing));
}

INSTANTIATE_TEST_SUITE_P(Roles, DashboardModelTest, testing::ValuesIn(dashboards()), ByName());

} // namespace
