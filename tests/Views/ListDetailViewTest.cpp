#include "Lists/ListDetailView.h"

#include "Components/Emblem.h"
#include "Components/EmptyStateView.h"
#include "Lists/RowListView.h"
#include "ScreensViewTest.h"
#include "Type.h"

using namespace Qt::StringLiterals;

namespace {

/// A list without rows beside a detail.
class ListDetailViewTest : public ScreensViewTest
{
protected:
    ~ListDetailViewTest() override
    {
        view.reset();
        QApplication::setLayoutDirection(Qt::LeftToRight);
        Type::followDesktop(13);
    }

    void open(QSize size)
    {
        view = std::make_unique<ListDetailView>(
            ListDetailView::Texts{u"Sessions"_s, u"Search"_s, u"Loading..."_s, u"tray.full.fill"_s,
                u"No Sessions Found"_s, u"Book a remote notary session or adjust your search filters."_s},
            rows, ListRowDelegate::Options());
        view->setSubtitle(u"Your remote notary sessions."_s);
        detail = new QWidget;
        view->setDetail(detail);
        view->resize(size);
        show(*view);
    }

    QRect inView(const QWidget* widget) const
    {
        return {widget->mapTo(view.get(), QPoint()), widget->size()};
    }
    QRect pane() const { return inView(view->findChild<EmptyStateView*>()); }

    RowListModel rows;
    std::unique_ptr<ListDetailView> view;
    QWidget* detail = nullptr;
};

struct PaneRow
{
    const char* name;
    int viewWidth;
    int textPixels;
    int paneWidth;
};

class ListPane : public ListDetailViewTest, public testing::WithParamInterface<PaneRow>
{ };

} // namespace

TEST_P(ListPane, TakesItsShareOfTheWidth)
{
    Type::followDesktop(GetParam().textPixels);
    open({GetParam().viewWidth, 728});
    EXPECT_EQ(pane().width(), GetParam().paneWidth);
    EXPECT_EQ(detail->geometry(),
        QRect(GetParam().paneWidth + 1, 0, view->width() - GetParam().paneWidth - 1, 728));
}

INSTANTIATE_TEST_SUITE_P(Widths, ListPane,
    testing::Values(PaneRow{"Least", 760, 13, 312}, PaneRow{"Share", 960, 13, 360},
        PaneRow{"Most", 1680, 13, 400}, PaneRow{"LargeTextInASmallWindow", 820, 26, 410},
        PaneRow{"LargeTextInALargeWindow", 1800, 26, 675}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(ListDetailViewTest, FromRightToLeftTheListIsOnTheRight)
{
    QApplication::setLayoutDirection(Qt::RightToLeft);
    open({960, 728});
    EXPECT_EQ(pane().right(), view->width() - 1);
    EXPECT_EQ(detail->geometry(), QRect(0, 0, 960 - 361, 728));
}

/// Not in the middle of the list's place, which begins under the search.
TEST_F(ListDetailViewTest, AnEmptyListSaysSoInTheMiddleOfThePane)
{
    open({960, 728});
    const QRect emblem = inView(view->findChild<Emblem*>());
    // Circle, room, title, room, two lines of text.
    constexpr int block = 72 + 16 + 24 + 4 + 40;
    EXPECT_NEAR(emblem.top() + block / 2, view->height() / 2, 1);
    EXPECT_NEAR(emblem.center().x(), pane().center().x(), 1);
}

TEST_F(ListDetailViewTest, AnEmptyListStaysUnderTheSearchWhereThereIsNoRoomForTheMiddle)
{
    Type::followDesktop(26);
    open({820, 616});
    const QRect area = pane();
    const QRect emblem = inView(view->findChild<Emblem*>());
    EXPECT_GE(emblem.top(), area.top());
    EXPECT_LT(emblem.top(), area.top() + 60);
}
