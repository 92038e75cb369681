#include "Lists/ListDetailView.h"

#include "Components/Emblem.h"
#include "Components/EmptyStateView.h"
#include "Components/SearchField.h"
#include "Lists/RowListView.h"
#include "ScreensViewTest.h"
#include "Type.h"

#include <QLineEdit>
#include <QSignalSpy>

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

RowListModel::Content content(std::initializer_list<qint64> ids)
{
    QList<RowTexts> rows;
    for (const qint64 id : ids) {
        rows.emplaceBack();
        rows.last().id = id;
    }
    return RowListModel::Content::of(std::move(rows));
}

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

/// A record that was deleted takes along the button that deleted it.
TEST_F(ListDetailViewTest, AFocusThatWasInTheDetailGoesOnInTheList)
{
    rows.setContent(content({7, 8}));
    open({960, 728});
    auto* field = new QLineEdit(detail);
    field->show();
    field->setFocus();
    ASSERT_EQ(QApplication::focusWidget(), field);
    QSignalSpy chosen(view->list(), &RowListView::chosen);
    view->setDetail(new QWidget);
    EXPECT_EQ(QApplication::focusWidget(), view->list());
    EXPECT_EQ(chosen.count(), 0);
}

TEST_F(ListDetailViewTest, AFocusThatWasInTheDetailGoesToTheSearchOfAnEmptyList)
{
    open({960, 728});
    auto* field = new QLineEdit(detail);
    field->show();
    field->setFocus();
    ASSERT_EQ(QApplication::focusWidget(), field);
    view->setDetail(new QWidget);
    EXPECT_EQ(QApplication::focusWidget(), view->searchField());
}

TEST_F(ListDetailViewTest, AFocusElsewhereStaysWhereItIs)
{
    rows.setContent(content({7}));
    open({960, 728});
    view->searchField()->setFocus();
    view->setDetail(new QWidget);
    EXPECT_EQ(QApplication::focusWidget(), view->searchField());
}
