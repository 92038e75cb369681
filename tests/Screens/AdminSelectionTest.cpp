#include "AdminTest.h"

using namespace Qt::StringLiterals;

namespace {

/// The records 5, 2 and 9 are loaded; the second is selected.
template <typename List>
class AdminSelectionTest : public AdminTest<List>
{
protected:
    AdminSelectionTest()
    {
        this->loadList({5, 2, 9});
        this->model->select(1);
        QObject::connect(
            this->model.get(), &ListScreenModel::selectionChanged, this->model.get(), [this] { ++changes; });
    }

    int changes = 0;
};

TYPED_TEST_SUITE(AdminSelectionTest, AdminLists);

TYPED_TEST(AdminSelectionTest, FillsThePane)
{
    EXPECT_EQ(this->selectedId(), 2);
    EXPECT_EQ(this->selectedTitle(), u"Person 2"_s);
    ASSERT_NE(this->model->detail(), nullptr);
    EXPECT_EQ(this->model->pane(), this->model->detail());
    EXPECT_EQ(this->name(), u"Person 2"_s);
    EXPECT_FALSE(this->model->detail()->hasEdits());
    EXPECT_EQ(this->requestCount(), 1) << "nothing more is asked for";
}

TYPED_TEST(AdminSelectionTest, AnotherRowFillsAPaneOfItsOwn)
{
    const auto before = this->model->detail();
    this->model->select(2);
    EXPECT_NE(this->model->detail(), before);
    EXPECT_EQ(this->selectedId(), 9);
    EXPECT_EQ(this->name(), u"Person 9"_s);
    EXPECT_EQ(this->changes, 1);
}

TYPED_TEST(AdminSelectionTest, TheSelectedRowAndAnUnknownOneChangeNothing)
{
    this->typeName(u"typed"_s);
    for (const qint64 row : {1, 3, -1, 77}) {
        this->model->select(row);
        EXPECT_FALSE(this->isAsking());
        EXPECT_EQ(this->name(), u"typed"_s);
        EXPECT_EQ(this->changes, 0);
    }
}

TYPED_TEST(AdminSelectionTest, AsksBeforeEditsAreLost)
{
    this->typeName(u"typed"_s);
    this->model->select(2);
    EXPECT_TRUE(this->isAsking());
    EXPECT_EQ(this->selectedId(), 2);
    this->leaving.answer(false);
    EXPECT_EQ(this->selectedId(), 2);
    EXPECT_EQ(this->name(), u"typed"_s);
    this->model->select(2);
    this->leaving.answer(true);
    EXPECT_EQ(this->selectedId(), 9);
    EXPECT_EQ(this->name(), u"Person 9"_s);
}

TYPED_TEST(AdminSelectionTest, WhatIsTypedBackIsNoEdit)
{
    this->typeName(u"typed"_s);
    this->typeName(u"Person 2"_s);
    this->model->select(2);
    EXPECT_FALSE(this->isAsking());
    EXPECT_EQ(this->selectedId(), 9);
}

TYPED_TEST(AdminSelectionTest, ARowThatMovedWhileThePersonIsAskedIsGoneToWhereItIs)
{
    this->typeName(u"typed"_s);
    this->model->select(2);
    this->loadList({1, 9, 3, 2});
    this->leaving.answer(true);
    EXPECT_EQ(this->selectedId(), 9);
    EXPECT_EQ(this->selectedTitle(), u"Person 9"_s);
}

TYPED_TEST(AdminSelectionTest, ARowThatGoesWhileThePersonIsAskedIsNotGoneTo)
{
    this->typeName(u"typed"_s);
    this->model->select(2);
    this->loadList({2, 5, 3});
    this->leaving.answer(true);
    EXPECT_EQ(this->selectedId(), 2);
}

TYPED_TEST(AdminSelectionTest, AReloadKeepsTheSelectionWhereverItsRowIs)
{
    const auto before = this->model->detail();
    this->loadList({9, 7, 8, 2});
    EXPECT_EQ(this->selectedId(), 2);
    EXPECT_EQ(this->selectedTitle(), u"Person 2"_s);
    EXPECT_EQ(this->model->detail(), before);
}

TYPED_TEST(AdminSelectionTest, AReloadBringsNewContentsIntoFieldsThatAreNotEdited)
{
    this->typeName(u"typed"_s);
    this->loadJson(R"([{"id": 2, "name": "Renamed", "email": "new@example.com"}])");
    EXPECT_EQ(this->name(), u"typed"_s);
    EXPECT_EQ(TypeParam::email(*this->model->detail()).value(), u"new@example.com"_s);
    EXPECT_TRUE(this->model->detail()->hasEdits());
    this->typeName(u"Renamed"_s);
    EXPECT_FALSE(this->model->detail()->hasEdits()) << "what stands there is what the bridge has";
}

TYPED_TEST(AdminSelectionTest, ARecordThatIsMissingAfterAReload)
{
    this->loadList({9, 7});
    if (TypeParam::keepsMissing) {
        EXPECT_EQ(this->selectedId(), 2);
        EXPECT_EQ(this->name(), u"Person 2"_s);
    } else {
        EXPECT_EQ(this->selectedId(), std::nullopt);
        EXPECT_EQ(this->model->detail(), nullptr);
    }
    EXPECT_EQ(this->model->selectedRow(), std::nullopt);
}

TYPED_TEST(AdminSelectionTest, AMissingRecordIsNotTakenFromUnderEdits)
{
    this->typeName(u"typed"_s);
    this->loadList({9, 7});
    EXPECT_EQ(this->selectedId(), 2);
    EXPECT_EQ(this->name(), u"typed"_s);
    EXPECT_EQ(this->model->selectedRow(), std::nullopt);
    this->model->select(1);
    EXPECT_TRUE(this->isAsking());
    this->leaving.answer(true);
    EXPECT_EQ(this->selectedId(), 7);
}

TYPED_TEST(AdminSelectionTest, TheSelectionMayBeFilteredAway)
{
    this->model->search = u"person 9"_s;
    EXPECT_EQ(this->selectedId(), 2);
    EXPECT_EQ(this->selectedTitle(), QString());
    this->model->search = QString();
    EXPECT_EQ(this->selectedTitle(), u"Person 2"_s);
}

} // namespace
