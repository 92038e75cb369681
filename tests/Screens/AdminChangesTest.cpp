#include "AdminTest.h"

using namespace Qt::StringLiterals;

namespace {

using Work = EditPaneModel::Work;

/// The records 5, 2 and 9 are loaded; the second is selected. Its first change is request 1.
template <typename List>
class AdminChangesTest : public AdminTest<List>
{
protected:
    AdminChangesTest()
    {
        this->loadList({5, 2, 9});
        this->model->select(1);
        detail = this->model->detail();
    }

    QList<QString> alert() const { return this->alertOf(*detail); }

    std::shared_ptr<typename List::Detail> detail;
    const QString listLine = u"GET "_s + QString::fromUtf16(List::path);
    const QString cannotSave = QString::fromUtf16(List::cannotSave);
    const QString cannotDelete = QString::fromUtf16(List::cannotDelete);
    const QString saved = QString::fromUtf16(List::saved);
};

TYPED_TEST_SUITE(AdminChangesTest, AdminLists);

TYPED_TEST(AdminChangesTest, ASaveReloadsTheListAndSaysSo)
{
    this->typeName(u"typed"_s);
    this->save();
    EXPECT_EQ(this->line(1), u"POST "_s + this->path(2));
    EXPECT_EQ(this->header(1, "Authorization"), "Bearer maya-token");
    EXPECT_TRUE(this->detail->isSaving());
    EXPECT_TRUE(this->alert().isEmpty());

    this->answer(1, "{}");
    EXPECT_FALSE(this->detail->isSaving());
    EXPECT_EQ(this->alert(), (QList<QString>{u"Saved"_s, this->saved}));
    ASSERT_EQ(this->requestCount(), 3);
    EXPECT_EQ(this->line(2), this->listLine);
    EXPECT_FALSE(this->detail->hasEdits());

    this->answer(2, this->list({5, 2, 9}));
    EXPECT_EQ(this->selectedId(), 2);
    EXPECT_EQ(this->model->detail(), this->detail);
}

TYPED_TEST(AdminChangesTest, TheListIsAskedForBeforeTheAlertIsSet)
{
    QStringList order;
    QObject::connect(this->detail.get(), &EditPaneModel::changed, this->detail.get(), [&] {
        order += this->alert().isEmpty() ? u"list"_s : u"list after the alert"_s;
        order += this->detail->isSaving() ? u"saving"_s : u"saved"_s;
    });
    const auto onAlert = this->detail->alert.addNotifier(
        [&] { order += this->detail->isSaving() ? u"alert"_s : u"alert after the end"_s; });
    this->save();
    this->answer(1, "{}");
    EXPECT_EQ(order, (QStringList{u"list"_s, u"saving"_s, u"alert"_s}));
    this->answer(2, "[]");
}

TYPED_TEST(AdminChangesTest, WhatWasTypedAndSavedStaysAsTyped)
{
    this->typeName(u" typed "_s);
    this->save();
    this->answer(1, "{}");
    this->answer(2, R"([{"id": 2, "name": "typed"}])");
    EXPECT_EQ(this->name(), u" typed "_s);
    EXPECT_FALSE(this->detail->hasEdits());

    this->loadJson(R"([{"id": 2, "name": "typed"}])");
    EXPECT_EQ(this->name(), u" typed "_s) << "nobody changed it since";
    this->loadJson(R"([{"id": 2, "name": "Changed elsewhere"}])");
    EXPECT_EQ(this->name(), u"Changed elsewhere"_s);
}

TYPED_TEST(AdminChangesTest, WhatIsTypedDuringASaveIsAnEditAfterIt)
{
    this->typeName(u"first"_s);
    this->save();
    this->typeName(u"second"_s);
    this->answer(1, "{}");
    EXPECT_TRUE(this->detail->hasEdits());
    this->answer(2, R"([{"id": 2, "name": "first"}])");
    EXPECT_EQ(this->name(), u"second"_s);
}

TYPED_TEST(AdminChangesTest, ASecondPressWhileOneIsUnderWayDoesNothing)
{
    this->save();
    this->save();
    this->deleteRecord();
    EXPECT_EQ(this->requestCount(), 2);
    this->answer(1, "{}", 500);
    this->save();
    EXPECT_EQ(this->requestCount(), 3);
    this->answer(2, "{}", 500);
}

TYPED_TEST(AdminChangesTest, AFailedSaveIsShownAndKeepsWhatWasTyped)
{
    this->typeName(u"typed"_s);
    this->save();
    this->answer(1, R"({"error": "Enter a valid email address."})", 422);
    EXPECT_EQ(this->alert(), (QList<QString>{this->cannotSave, u"Enter a valid email address."_s}));
    EXPECT_EQ(this->name(), u"typed"_s);
    EXPECT_TRUE(this->detail->hasEdits());
    EXPECT_FALSE(this->detail->isSaving());
    EXPECT_EQ(this->requestCount(), 2) << "the list is as it was";
}

TYPED_TEST(AdminChangesTest, AnAnswerThatIsNoObjectIsAFailure)
{
    this->save();
    this->answer(1, "[]");
    EXPECT_EQ(this->alert(),
        (QList<QString>{this->cannotSave, u"We could not complete that request. Please try again."_s}));
}

TYPED_TEST(AdminChangesTest, ADeletionTakesTheRecordAwayWithoutAWord)
{
    this->deleteRecord();
    EXPECT_EQ(this->line(1), u"DELETE "_s + this->path(2));
    EXPECT_EQ(this->detail->work.value(), Work::deletion);
    EXPECT_FALSE(this->isAsking());
    this->answer(1, QByteArray(), 204);
    EXPECT_TRUE(this->alert().isEmpty());
    EXPECT_EQ(this->selectedId(), std::nullopt);
    EXPECT_EQ(this->model->detail(), nullptr);
    EXPECT_EQ(this->titles(), (QStringList{u"Person 5"_s, u"Person 9"_s}));
    EXPECT_EQ(this->line(2), this->listLine);
    this->answer(2, this->list({5, 9}));
    EXPECT_EQ(this->selectedId(), std::nullopt);
}

TYPED_TEST(AdminChangesTest, ADeletedRecordStaysAwayWhenTheListCannotBeLoaded)
{
    this->deleteRecord();
    this->answer(1, "{}");
    this->answer(2, "{}", 500);
    EXPECT_EQ(this->loadedIds(), (QList<qint64>{5, 9}));
    this->model->select(2);
    EXPECT_EQ(this->selectedId(), 9) << "the rows after it are still the same records";
}

TYPED_TEST(AdminChangesTest, AFailedDeletionLeavesEverything)
{
    this->typeName(u"typed"_s);
    this->deleteRecord();
    this->answer(1, R"({"message": "You cannot delete this."})", 409);
    EXPECT_EQ(this->alert(), (QList<QString>{this->cannotDelete, u"You cannot delete this."_s}));
    EXPECT_EQ(this->selectedId(), 2);
    EXPECT_EQ(this->name(), u"typed"_s);
    EXPECT_EQ(this->requestCount(), 2);
}

TYPED_TEST(AdminChangesTest, SessionExpirySignsOutWithoutAWord)
{
    for (const bool saves : {true, false}) {
        this->signIn(account(u"Maya"_s, {AppRole::admin}), AppRole::admin);
        if (saves)
            this->save();
        else
            this->deleteRecord();
        this->answer(this->requestCount() - 1, "{}", 401);
        EXPECT_FALSE(this->auth.isSignedIn());
        EXPECT_TRUE(this->alert().isEmpty());
        EXPECT_EQ(this->detail->work.value(), Work::none);
    }
}

TYPED_TEST(AdminChangesTest, WithoutAUserTheySignOutAndStop)
{
    this->auth.signOut();
    this->save();
    this->deleteRecord();
    EXPECT_EQ(this->requestCount(), 1);
    EXPECT_TRUE(this->alert().isEmpty());
    EXPECT_FALSE(this->detail->isSaving());
}

TYPED_TEST(AdminChangesTest, WhatEndsAfterTheUserLeftIsToldToNobody)
{
    for (const int status : {200, 500, 401}) {
        this->save();
        const qsizetype number = this->requestCount() - 1;
        this->replaceUser(account(u"Maya"_s, {AppRole::admin}), AppRole::admin);
        this->answer(number, "{}", status);
        EXPECT_TRUE(this->alert().isEmpty());
        EXPECT_TRUE(this->auth.isSignedIn());
        EXPECT_FALSE(this->detail->isSaving());
        EXPECT_EQ(this->requestCount(), number + 1) << "no list is loaded";
    }
}

TYPED_TEST(AdminChangesTest, LeavingDuringASaveIsAskedAboutUntilItEnds)
{
    this->typeName(u"typed"_s);
    this->save();
    this->model->select(2);
    ASSERT_TRUE(this->isAsking());
    this->answer(1, "{}");
    EXPECT_FALSE(this->isAsking());
    EXPECT_EQ(this->selectedId(), 9) << "nothing stands in the way any more";
    EXPECT_EQ(this->line(2), this->listLine);
}

TYPED_TEST(AdminChangesTest, AFailureKeepsWhoWaitsToLeave)
{
    this->save();
    this->model->select(2);
    this->answer(1, "{}", 500);
    EXPECT_FALSE(this->isAsking());
    EXPECT_EQ(this->selectedId(), 2) << "the failure has to be read";
    EXPECT_EQ(this->alert().value(0), this->cannotSave);
}

TYPED_TEST(AdminChangesTest, ARecordDeletedBehindAnotherOneLeavesTheSelectionAlone)
{
    this->deleteRecord();
    this->model->select(2);
    this->leaving.answer(true);
    EXPECT_EQ(this->selectedId(), 9);
    this->answer(1, "{}");
    EXPECT_EQ(this->selectedId(), 9);
    EXPECT_EQ(this->selectedTitle(), u"Person 9"_s);
    EXPECT_EQ(this->titles(), (QStringList{u"Person 5"_s, u"Person 9"_s}));
    EXPECT_EQ(this->line(2), this->listLine);
}

TYPED_TEST(AdminChangesTest, AChangeOutlivesItsScreen)
{
    this->leaving.forget();
    this->save();
    this->model.reset();
    this->answer(1, "{}");
    EXPECT_EQ(this->requestCount(), 2) << "there is no list to load";
    EXPECT_FALSE(this->detail->isSaving());
}

} // namespace
