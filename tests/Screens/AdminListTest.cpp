#include "AdminTest.h"

#include <QAbstractItemModelTester>

using namespace Qt::StringLiterals;

namespace {

template <typename List>
class AdminListTest : public AdminTest<List>
{
protected:
    QAbstractItemModelTester tester{
        &this->model->rows(), QAbstractItemModelTester::FailureReportingMode::Fatal};
    const QString cannotLoad = QString::fromUtf16(List::cannotLoad);
};

TYPED_TEST_SUITE(AdminListTest, AdminLists);

TYPED_TEST(AdminListTest, StartsEmpty)
{
    EXPECT_TRUE(this->model->records().isEmpty());
    EXPECT_EQ(this->selectedId(), std::nullopt);
    EXPECT_EQ(this->model->detail(), nullptr);
    EXPECT_EQ(this->model->search.value(), QString());
    EXPECT_FALSE(this->model->isLoading.value());
    EXPECT_TRUE(this->alertOf(*this->model).isEmpty());
    EXPECT_EQ(this->requestCount(), 0);
}

TYPED_TEST(AdminListTest, ShowsTheRecordsInTheBridgesOrderAndSelectsNone)
{
    this->load();
    EXPECT_EQ(this->line(0), u"GET "_s + QString::fromUtf16(TypeParam::path));
    EXPECT_EQ(this->header(0, "Authorization"), "Bearer maya-token");
    EXPECT_TRUE(this->model->isLoading.value());
    this->answer(0, this->list({5, 2, 9}));
    EXPECT_FALSE(this->model->isLoading.value());
    EXPECT_EQ(this->loadedIds(), (QList<qint64>{5, 2, 9}));
    EXPECT_EQ(this->titles(), (QStringList{u"Person 5"_s, u"Person 2"_s, u"Person 9"_s}));
    EXPECT_EQ(this->selectedId(), std::nullopt);
}

TYPED_TEST(AdminListTest, ARefreshLoadsAgain)
{
    this->loadList({5});
    this->model->refresh();
    ASSERT_EQ(this->requestCount(), 2);
    this->answer(1, this->list({5, 6}));
    EXPECT_EQ(this->loadedIds(), (QList<qint64>{5, 6}));
}

TYPED_TEST(AdminListTest, WithoutAUserItSignsOutAndStops)
{
    this->auth.signOut();
    this->defaults.setString(AuthManager::activeRoleKey, u"admin"_s);
    this->load();
    EXPECT_EQ(this->requestCount(), 0);
    EXPECT_FALSE(this->model->isLoading.value());
    EXPECT_TRUE(this->alertOf(*this->model).isEmpty());
    EXPECT_FALSE(this->defaults.string(AuthManager::activeRoleKey).has_value()) << "signed out for good";
}

TYPED_TEST(AdminListTest, AFailureIsShownAndTheListStays)
{
    this->loadList({5, 2});
    this->model->select(1);
    this->load();
    this->answer(1, R"({"message": "Try later."})", 500);
    EXPECT_EQ(this->alertOf(*this->model), (QList<QString>{this->cannotLoad, u"Try later."_s}));
    EXPECT_EQ(this->loadedIds(), (QList<qint64>{5, 2}));
    EXPECT_EQ(this->selectedId(), 2);
    EXPECT_FALSE(this->model->isLoading.value());
}

TYPED_TEST(AdminListTest, SessionExpirySignsOutWithoutAWord)
{
    this->load();
    this->answer(0, "{}", 401);
    EXPECT_FALSE(this->auth.isSignedIn());
    EXPECT_TRUE(this->alertOf(*this->model).isEmpty());
    EXPECT_FALSE(this->model->isLoading.value());
}

TYPED_TEST(AdminListTest, AnOlderLoadDoesNotReplaceANewerOne)
{
    this->load();
    this->load();
    this->answer(1, this->list({2}));
    EXPECT_FALSE(this->model->isLoading.value());
    this->answer(0, this->list({1}));
    EXPECT_EQ(this->loadedIds(), QList<qint64>{2});
}

TYPED_TEST(AdminListTest, AnOlderLoadCountsWhereANewerOneFailed)
{
    this->load();
    this->load();
    this->answer(1, "{}", 500);
    this->answer(0, this->list({1}));
    EXPECT_EQ(this->loadedIds(), QList<qint64>{1});
}

TYPED_TEST(AdminListTest, AFailureAfterANewerLoadIsNobodysBusiness)
{
    this->load();
    this->load();
    this->answer(1, this->list({2}));
    this->answer(0, "{}", 500);
    EXPECT_TRUE(this->alertOf(*this->model).isEmpty());
    EXPECT_EQ(this->loadedIds(), QList<qint64>{2});
}

TYPED_TEST(AdminListTest, NothingIsStoredForAUserWhoHasLeft)
{
    this->load();
    this->auth.signOut();
    this->answer(0, this->list({4}));
    EXPECT_TRUE(this->loadedIds().isEmpty());
    EXPECT_FALSE(this->model->isLoading.value());
}

TYPED_TEST(AdminListTest, NothingIsStoredForAUserWhoLeavesWhileTheAnswerIsRead)
{
    this->load();
    this->webSession->answer(0, 200, this->list({4}));
    this->auth.signOut();
    settle();
    EXPECT_TRUE(this->loadedIds().isEmpty());
}

TYPED_TEST(AdminListTest, ALateAnswerForSomebodyElseShowsNothingAndSignsNobodyOut)
{
    for (const int status : {200, 500, 401}) {
        this->load();
        const qsizetype number = this->requestCount() - 1;
        this->replaceUser(account(u"Second"_s, {AppRole::admin}), AppRole::admin);
        this->answer(number, status == 200 ? this->list({4}) : QByteArray("{}"), status);
        EXPECT_TRUE(this->loadedIds().isEmpty());
        EXPECT_TRUE(this->alertOf(*this->model).isEmpty());
        EXPECT_TRUE(this->auth.isSignedIn());
    }
}

TYPED_TEST(AdminListTest, LivesUntilItsAnswer)
{
    this->leaving.forget();
    const std::weak_ptr<typename TypeParam::Model> gone = this->model;
    launch(this->model->load());
    this->tester.disconnect();
    this->model.reset();
    EXPECT_FALSE(gone.expired());
    this->answer(0, "[]");
    EXPECT_TRUE(gone.expired());
}

TYPED_TEST(AdminListTest, OutlivesTheEndOfTheWebSession)
{
    this->load();
    EXPECT_EQ(this->request(0).method, "GET");
    this->webSession.reset();
    EXPECT_FALSE(this->model->isLoading.value());
}

TYPED_TEST(AdminListTest, AnAnswerWithoutAListIsAnEmptyList)
{
    for (const QByteArray& json : {QByteArray("{}"), QByteArray(R"({"data": "none"})"),
             QByteArray(R"([{"id": 1}, "text", null])"), QByteArray(R"({"data": [1]})"), QByteArray()}) {
        this->loadJson(json);
        EXPECT_TRUE(this->loadedIds().isEmpty()) << json.toStdString();
        EXPECT_TRUE(this->alertOf(*this->model).isEmpty()) << json.toStdString();
    }
}

TYPED_TEST(AdminListTest, AnyTypeInAnyFieldLoadsAndOpens)
{
    const QList<QByteArray> fields{"id", "user_id", "notary_id", "record_id", "record_type", "type", "status",
        "source", "name", "full_name", "display_name", "email", "phone", "role", "app_role", "contact_name",
        "document_type", "document_types", "scheduled_date", "scheduled_time", "notes", "signer_names",
        "signers", "state", "county", "billing_status", "active", "is_active"};
    const QList<QByteArray> values{"\"text\"", "12", "1.5", "null", "\"null\"", "true", "[]", "[1]", "[{}]",
        "[\"a\", 1, {}]", "{}", "{\"a\": []}", "\"\""};
    for (const QByteArray& field : fields) {
        for (const QByteArray& value : values) {
            this->loadJson("[{\"" + field + "\": " + value + "}]");
            ASSERT_EQ(this->model->records().size(), 1) << field.toStdString() << ": " << value.toStdString();
            EXPECT_FALSE(this->titles().constFirst().isEmpty()) << field.toStdString();
            this->model->select(0);
            EXPECT_NE(this->model->detail(), nullptr);
            EXPECT_TRUE(this->alertOf(*this->model).isEmpty());
        }
    }
}

TYPED_TEST(AdminListTest, RecordsWithoutAnIdAreRowsOfTheirOwn)
{
    this->loadJson(R"([{"name": "A"}, {"name": "B"}, {"name": "C"}])");
    for (const int row : {2, 0, 1}) {
        this->model->select(row);
        EXPECT_EQ(this->selectedTitle(), this->titles().at(row));
        EXPECT_EQ(this->name(), this->titles().at(row));
    }
}

TYPED_TEST(AdminListTest, TheSearchIsTrimmedAndKeptOverALoad)
{
    this->loadList({5, 2, 15});
    this->model->search = u"  PERSON 5\n"_s;
    EXPECT_EQ(this->titles(), QStringList{u"Person 5"_s});
    ASSERT_EQ(this->model->filtered().size(), 1);
    EXPECT_EQ(this->model->filtered().constFirst().id, 5);
    this->loadList({2, 51, 5});
    EXPECT_EQ(this->titles(), (QStringList{u"Person 51"_s, u"Person 5"_s}));
    this->model->search = u" \t\n"_s;
    EXPECT_EQ(this->model->filtered().size(), 3);
}

} // namespace
