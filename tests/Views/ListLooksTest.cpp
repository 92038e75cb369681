#include "Components/ComboBox.h"
#include "Components/IconButton.h"
#include "Components/SearchField.h"
#include "Lists/RowListView.h"
#include "Palette.h"
#include "Screens/Cases.h"
#include "WholeWindowTest.h"

#include <QHelpEvent>
#include <QScrollBar>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace {

class ListLooks : public WholeWindowTest
{
protected:
    ~ListLooks() override
    {
        window.reset();
        QApplication::setLayoutDirection(Qt::LeftToRight);
        Type::followDesktop(13);
    }

    RowListView* list() const { return window->findChild<RowListView*>(); }
    SearchField* search() const { return window->findChild<SearchField*>(); }
    IconButton* clearButton() const { return named<IconButton>(*window, u"Clear Search"_s); }
    /// A colour in the middle of the thumb's height, so many pixels from the list's trailing edge.
    QColor beside(int pixels) const
    {
        const QImage picture = list()->grab().toImage();
        const int x = list()->isRightToLeft() ? pixels - 1 : picture.width() - pixels;
        return picture.pixelColor(x, 40);
    }
};

class ListLooksInEitherDirection : public ListLooks, public testing::WithParamInterface<Qt::LayoutDirection>
{ };

std::string nameOfDirection(const testing::TestParamInfo<Qt::LayoutDirection>& direction)
{
    return direction.param == Qt::RightToLeft ? "RightToLeft" : "LeftToRight";
}

} // namespace

TEST_P(ListLooksInEitherDirection, TheThumbTouchesNeitherRowsNorTheEdge)
{
    QApplication::setLayoutDirection(GetParam());
    open({"Sessions", AppRole::client, AppSection::sessions, 0}, {980, 680});
    ASSERT_GT(list()->verticalScrollBar()->maximum(), 0);
    const QColor thumb = Palette::color(Brand::fieldBorder);
    for (int pixels = 1; pixels <= 12; ++pixels)
        EXPECT_EQ(beside(pixels) == thumb, pixels > 3 && pixels <= 9) << pixels;
    EXPECT_EQ(beside(13), Palette::color(Brand::softBlue)) << "the selected row, up to its edge";
}

TEST_P(ListLooksInEitherDirection, TheThumbWidensUnderThePointer)
{
    QApplication::setLayoutDirection(GetParam());
    open({"Sessions", AppRole::client, AppSection::sessions, 0}, {980, 680});
    QTest::mouseMove(list()->verticalScrollBar());
    settle();
    const QColor thumb = Palette::color(Brand::muted);
    for (int pixels = 1; pixels <= 12; ++pixels)
        EXPECT_EQ(beside(pixels) == thumb, pixels > 2 && pixels <= 10) << pixels;
}

INSTANTIATE_TEST_SUITE_P(Directions, ListLooksInEitherDirection,
    testing::Values(Qt::LeftToRight, Qt::RightToLeft), nameOfDirection);

TEST_F(ListLooks, WithoutAScrollBarTheRowsReachAsFarAsOnTheOtherSide)
{
    open({"Users", AppRole::admin, AppSection::adminUsers}, {1180, 1000});
    ASSERT_EQ(list()->verticalScrollBar()->maximum(), 0);
    const QRect rows = list()->viewport()->geometry();
    EXPECT_EQ(rows.left(), list()->width() - 1 - rows.right());
}

TEST_P(ListLooksInEitherDirection, TheSearchIsClearedByItsButton)
{
    QApplication::setLayoutDirection(GetParam());
    open({"Sessions", AppRole::client, AppSection::sessions});
    EXPECT_EQ(clearButton(), nullptr) << "there is nothing to clear";
    search()->setFocus();
    QTest::keyClicks(search(), u"priya"_s);
    settle();
    ASSERT_NE(clearButton(), nullptr);
    EXPECT_EQ(clearButton()->systemImage(), u"xmark.circle.fill"_s);
    EXPECT_TRUE(search()->rect().contains(clearButton()->geometry()));
    const bool isLast = clearButton()->geometry().center().x() > search()->width() / 2;
    EXPECT_EQ(isLast, GetParam() == Qt::LeftToRight);
    const int few = list()->model()->rowCount();
    list()->setFocus();
    click(clearButton());
    EXPECT_EQ(search()->text(), QString());
    EXPECT_GT(list()->model()->rowCount(), few);
    EXPECT_TRUE(search()->hasFocus()) << "to type the next search";
    EXPECT_EQ(clearButton(), nullptr);
}

TEST_F(ListLooks, TabGoesFromTheSearchPastItsButton)
{
    open({"Users", AppRole::admin, AppSection::adminUsers});
    search()->setFocus(Qt::TabFocusReason);
    QTest::keyClicks(search(), u"a"_s);
    QTest::keyClick(search(), Qt::Key_Tab);
    EXPECT_TRUE(list()->hasFocus());
}

namespace {

/// Lists in twice the text size, in the narrowest window.
class ListLooksLargeText : public ListLooks, public testing::WithParamInterface<Scene>
{ };

std::vector<Scene> lists()
{
    std::vector<Scene> scenes = allScenes();
    std::erase_if(scenes, [](const Scene& scene) { return scene.row < 0; });
    return scenes;
}

} // namespace

TEST_P(ListLooksLargeText, NoRowIsCutOff)
{
    Type::followDesktop(26);
    open(GetParam(), {980, 680});
    for (int row = 0; row < list()->model()->rowCount(); ++row) {
        const QModelIndex index = list()->model()->index(row, 0);
        list()->scrollTo(index);
        const QPoint spot = list()->visualRect(index).center();
        QHelpEvent asks(QEvent::ToolTip, spot, list()->viewport()->mapToGlobal(spot));
        QApplication::sendEvent(list()->viewport(), &asks);
        EXPECT_EQ(QToolTip::text(), QString());
    }
    // Nor what the list is filtered by.
    if (const auto* filter = named<ComboBox>(*window, u"Status"_s)) {
        EXPECT_GE(filter->width(), filter->sizeHint().width());
    }
}

INSTANTIATE_TEST_SUITE_P(Screens, ListLooksLargeText, testing::ValuesIn(lists()), ByName());
