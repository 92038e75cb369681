#include "DashboardTest.h"
#include "FailureKinds.h"

using namespace Qt::StringLiterals;

namespace {

const QString connection = u"Connection problem. Please check your internet connection and try again."_s;

class DashboardFailure : public DashboardTest
{ };

TEST_P(DashboardFailure, OfAnyRequestKeepsEveryListAndIsOneAlert)
{
    for (const FailureKind& failure : failureKinds()) {
        for (qsizetype failing = 0; failing < perLoad(); ++failing) {
            SCOPED_TRACE(testing::Message() << failure.name << " of request " << failing);
            answerAll(load(), many);
            ASSERT_EQ(values(), valuesFor(many));
            const qsizetype first = load();
            for (qsizetype i = 0; i < perLoad(); ++i) {
                if (i == failing)
                    failure.happen(*webSession, first + i);
                else
                    webSession->answer(first + i, 200, records(few[i]));
                settle();
            }
            EXPECT_EQ(values(), valuesFor(many));
            EXPECT_FALSE(model->isLoading.value());
            if (failure.message.isEmpty()) {
                EXPECT_FALSE(auth.isSignedIn());
                EXPECT_TRUE(alertOf(*model).isEmpty());
                signIn(account(u"Jordan Ellis"_s, {GetParam().role}), GetParam().role);
            } else {
                EXPECT_TRUE(auth.isSignedIn());
                EXPECT_EQ(alertOf(*model), (QList<QString>{GetParam().failureTitle, failure.message}));
            }
            model->dismissAlert();
        }
    }
}

TEST_P(DashboardFailure, IsToldInTheOrderOfTheRequests)
{
    const qsizetype first = load();
    answer(first + 1, R"({"message": "Second."})", 500);
    EXPECT_TRUE(alertOf(*model).isEmpty()) << "the first is still awaited";
    EXPECT_TRUE(model->isLoading.value());
    answer(first, R"({"message": "First."})", 500);
    EXPECT_EQ(alertOf(*model), (QList<QString>{GetParam().failureTitle, u"First."_s}));
    EXPECT_FALSE(model->isLoading.value());
    for (qsizetype i = 2; i < perLoad(); ++i)
        answer(first + i, "[]");
}

TEST_P(DashboardFailure, OfTheFirstRequestWaitsForNoOther)
{
    const qsizetype first = load();
    answer(first, R"({"message": "First."})", 500);
    EXPECT_EQ(alertOf(*model), (QList<QString>{GetParam().failureTitle, u"First."_s}));
    EXPECT_FALSE(model->isLoading.value());
    for (qsizetype i = 1; i < perLoad(); ++i)
        answer(first + i, records(few[i]));
    EXPECT_EQ(values(), valuesFor(nothing)) << "what comes after a failure is dropped";
}

TEST_P(DashboardFailure, IsForgottenWhenTheNextLoadSucceeds)
{
    const qsizetype first = load();
    for (qsizetype i = 0; i < perLoad(); ++i)
        fail(first + i);
    EXPECT_EQ(alertOf(*model), (QList<QString>{GetParam().failureTitle, connection}));
    model->dismissAlert();
    answerAll(load(), few);
    EXPECT_EQ(values(), valuesFor(few));
    EXPECT_TRUE(alertOf(*model).isEmpty());
}

INSTANTIATE_TEST_SUITE_P(Roles, DashboardFailure, testing::ValuesIn(dashboards()), ByName());

} // namespace
