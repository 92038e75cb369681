#include "Launch.h"

#include "AppError.h"
#include "ServicesTest.h"

using namespace Qt::StringLiterals;

namespace {

QCoro::Task<> loadInto(APIClient api, int* records)
{
    const QList<SessionSummary> sessions = co_await api.getSessions({}, {}, u"id-token"_s);
    *records = int(sessions.size());
}

QCoro::Task<> letOut()
{
    throw AppError(u"s3cret"_s);
    co_return;
}

using Launch = ServicesTest;

TEST_F(Launch, RunsWorkThatNobodyAwaits)
{
    int records = -1;
    launch(loadInto(api, &records));
    EXPECT_EQ(records, -1);
    answer(0, R"([{"id":1},{"id":2}])");
    EXPECT_EQ(records, 2);
}

using LaunchDeathTest = ServicesTest;

TEST_F(LaunchDeathTest, EndsTheProgramAtAnExceptionWithoutItsText)
{
    EXPECT_DEATH(launch(letOut()), testing::Not(testing::HasSubstr("s3cret")));
}

TEST_F(LaunchDeathTest, EndsTheProgramAtALateException)
{
    EXPECT_DEATH(
        {
            int records = 0;
            launch(loadInto(api, &records));
            answer(0, "{}", 500);
        },
        "nobody awaits");
}

} // namespace
