#include "DashboardViewTest.h"

#include "Lists/RowListView.h"

#include <QScrollBar>

using namespace Qt::StringLiterals;

namespace {

class OpenCallListTest : public DashboardViewTest
{
protected:
    /// Opens the dashboard with these sessions, called after their ids.
    void openWith(const QList<int>& assigned, const QList<int>& open, QSize size = regular)
    {
        model = openNotary(size);
        answerAll({sessions(assigned), sessions(open)});
    }

    static QByteArray sessions(const QList<int>& ids)
    {
        QByteArrayList list;
        for (const int id : ids)
            list += R"({"id": )" + QByteArray::number(id) + R"(, "client_name": "Call )"
                + QByteArray::number(id) + R"("})";
        return '[' + list.join(',') + ']';
    }

    static QList<int> upTo(int count)
    {
        QList<int> ids(count);
        std::iota(ids.begin(), ids.end(), 1);
        return ids;
    }

    Button* acceptButton(int id) { return named<Button>(*view, u"Accept Call %1"_s.arg(id)); }
    RowList* openCalls() { return list(u"Open Calls"_s); }
    qsizetype buttonCount() const
    {
        qsizetype count = 0;
        for (const Button* button : view->findChildren<Button*>())
            count += button->isVisible() && button->title() == u"Accept"_s;
        return count;
    }

    std::shared_ptr<NotaryDashboardModel> model;
};

} // namespace

TEST_F(OpenCallListTest, AClickOnARowOpensItsSession)
{
    openWith({4}, {8, 1});
    clickRow(u"Open Calls"_s, 1);
    EXPECT_EQ(router.selectedSection.value(), AppSection::sessions);
    EXPECT_EQ(router.selectedSessionId.value(), 1);
    clickRow(u"Assigned Sessions"_s, 0);
    EXPECT_EQ(router.selectedSessionId.value(), 4);
}

TEST_F(OpenCallListTest, AnAcceptButtonAcceptsItsCallAndOpensNothing)
{
    openWith({4}, {8, 1});
    router.selectedSection = AppSection::notaryDashboard;
    click(acceptButton(1));
    EXPECT_EQ(router.selectedSection.value(), AppSection::notaryDashboard);
    EXPECT_EQ(line(2), u"POST /notary/open-calls/1/accept"_s);
    EXPECT_TRUE(acceptButton(1)->isLoading());
    EXPECT_FALSE(acceptButton(8)->isLoading());
    answer(2, "{}");
    EXPECT_TRUE(acceptButton(1)->isLoading()) << "until the lists say so";
    answerAll({sessions({4, 1}), sessions({8})});
    EXPECT_EQ(acceptButton(1), nullptr);
    EXPECT_FALSE(acceptButton(8)->isLoading());
    EXPECT_EQ(tiles(), QStringList({u"Assigned: 2"_s, u"Open Calls: 1"_s, u"Upcoming: 0"_s}));
    const auto* assigned = list(u"Assigned Sessions"_s);
    EXPECT_EQ(assigned->currentIndex().row(), 1) << "selected where it went";
}

TEST_F(OpenCallListTest, ADoubleClickAndKeysAcceptOnce)
{
    openWith({}, {8});
    Button* button = acceptButton(8);
    QTest::mouseDClick(button, Qt::LeftButton);
    QTest::mouseClick(button, Qt::LeftButton);
    QTest::keyClick(button, Qt::Key_Space);
    QTest::keyClick(button, Qt::Key_Return);
    settle();
    EXPECT_EQ(requestCount(), 3);
    answer(2, "{}", 409);
}

TEST_F(OpenCallListTest, ACallThatAnotherNotaryHasIsOneAlertAndStays)
{
    openWith({4}, {8, 1});
    click(acceptButton(8));
    answer(2, R"({"message": "Another notary has already accepted this call."})", 409);
    ASSERT_NE(alert(), nullptr);
    EXPECT_EQ(alert()->title(), u"Cannot Accept Session"_s);
    EXPECT_EQ(rows(u"Open Calls"_s).size(), 2);
    EXPECT_FALSE(acceptButton(8)->isLoading());
    EXPECT_EQ(requestCount(), 3);
}

TEST_F(OpenCallListTest, TabGoesFromTheListToTheButtonOfItsCurrentRow)
{
    openWith({4, 5}, {8, 1, 3});
    EXPECT_EQ(tabRound(),
        QStringList(
            {u"Refresh"_s, u"All Sessions"_s, u"Assigned Sessions"_s, u"Open Calls"_s, u"Accept Call 8"_s}));
    openCalls()->setFocus(Qt::TabFocusReason);
    press(Qt::Key_Down);
    EXPECT_EQ(model->selected()->id, 1);
    press(Qt::Key_Tab);
    EXPECT_EQ(focused(), u"Accept Call 1"_s);
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(focused(), u"Open Calls"_s);
}

TEST_F(OpenCallListTest, ReturnOpensTheCurrentRowAndAcceptsOnItsButton)
{
    openWith({4}, {8, 1});
    openCalls()->setFocus(Qt::TabFocusReason);
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_EQ(router.selectedSessionId.value(), 1);
    router.selectedSection = AppSection::notaryDashboard;
    press(Qt::Key_Tab);
    press(Qt::Key_Return);
    EXPECT_EQ(line(2), u"POST /notary/open-calls/1/accept"_s);
    EXPECT_EQ(router.selectedSection.value(), AppSection::notaryDashboard);
    answer(2, "{}", 409);
}

TEST_F(OpenCallListTest, TheFocusStaysWithItsCallWhenTheRowsMove)
{
    openWith({}, {8, 1, 3});
    acceptButton(1)->setFocus(Qt::TabFocusReason);
    QTest::keyClick(view, Qt::Key_F5);
    settle();
    answerAll({"[]", sessions({9, 8, 3, 1})});
    EXPECT_EQ(focused(), u"Accept Call 1"_s);
    QTest::keyClick(view, Qt::Key_F5);
    settle();
    answerAll({"[]", sessions({9, 8})});
    EXPECT_EQ(focused(), u"Open Calls"_s) << "with the list when its call has gone";
}

TEST_F(OpenCallListTest, TheFocusDoesNotGetLostWithTheLastCall)
{
    openWith({4}, {8});
    click(acceptButton(8));
    acceptButton(8)->setFocus();
    answer(2, "{}");
    answerAll({sessions({4, 8}), "[]"});
    ASSERT_NE(QApplication::focusWidget(), nullptr);
    EXPECT_TRUE(QApplication::focusWidget()->isVisible());
}

TEST_F(OpenCallListTest, OnlyOneRowOfBothListsIsHighlighted)
{
    openWith({4, 5}, {8, 1});
    const auto selected = [this](const QString& name) {
        QList<int> selectedRows;
        for (const QModelIndex& index : list(name)->selectionModel()->selectedIndexes())
            selectedRows += index.row();
        return selectedRows;
    };
    list(u"Assigned Sessions"_s)->setFocus(Qt::TabFocusReason);
    press(Qt::Key_Down);
    EXPECT_EQ(selected(u"Assigned Sessions"_s), QList<int>{1});
    openCalls()->setFocus(Qt::TabFocusReason);
    EXPECT_EQ(selected(u"Open Calls"_s), QList<int>{0});
    EXPECT_EQ(selected(u"Assigned Sessions"_s), QList<int>{});
}

TEST_F(OpenCallListTest, OnlyCallsInAndNearSightHaveAButton)
{
    openWith({}, upTo(1000));
    EXPECT_NE(acceptButton(1), nullptr);
    EXPECT_LT(buttonCount(), 40);
    QScrollBar* bar = view->verticalScrollBar();
    bar->setValue(bar->maximum());
    settle();
    EXPECT_NE(acceptButton(1000), nullptr);
    EXPECT_EQ(acceptButton(1), nullptr);
    EXPECT_LT(buttonCount(), 40);
    const RowList* calls = openCalls();
    const QRect row = calls->visualRect(calls->model()->index(999, 0));
    const QRect button = acceptButton(1000)->geometry();
    EXPECT_LE(qAbs(row.center().y() - button.center().y()), 2) << "in the middle of its row";
    click(acceptButton(1000));
    EXPECT_EQ(line(2), u"POST /notary/open-calls/1000/accept"_s);
    answer(2, "{}", 409);
}

TEST_F(OpenCallListTest, ThePageFollowsTheCurrentRow)
{
    openWith({}, upTo(1000));
    openCalls()->setFocus(Qt::TabFocusReason);
    press(Qt::Key_End);
    EXPECT_EQ(openCalls()->currentIndex().row(), 999);
    QScrollBar* bar = view->verticalScrollBar();
    const RowList* calls = openCalls();
    const auto inSight = [&](int row) {
        const QRect area = calls->visualRect(calls->model()->index(row, 0));
        const QRect shown(calls->viewport()->mapTo(view->viewport(), area.topLeft()), area.size());
        return view->viewport()->rect().contains(shown);
    };
    EXPECT_TRUE(inSight(999));
    press(Qt::Key_Tab);
    EXPECT_EQ(focused(), u"Accept Call 1000"_s);
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    press(Qt::Key_Home);
    EXPECT_TRUE(inSight(0));
    EXPECT_LT(bar->value(), bar->maximum() / 10);
}

TEST_F(OpenCallListTest, ACallScrolledFarAwayKeepsTheButtonThatHasTheFocus)
{
    openWith({}, upTo(1000));
    acceptButton(2)->setFocus(Qt::TabFocusReason);
    QScrollBar* bar = view->verticalScrollBar();
    bar->setValue(bar->maximum());
    settle();
    EXPECT_EQ(focused(), u"Accept Call 2"_s);
    press(Qt::Key_Space);
    EXPECT_EQ(line(2), u"POST /notary/open-calls/2/accept"_s);
    answer(2, "{}", 409);
}

TEST_F(OpenCallListTest, ButtonsStandAtTheTrailingEnd)
{
    openWith({4}, {8});
    const auto gaps = [this] {
        const Button* button = acceptButton(8);
        const QWidget* calls = button->parentWidget();
        return std::pair(button->geometry().left(), calls->width() - button->geometry().right() - 1);
    };
    EXPECT_EQ(gaps().second, ListRowDelegate::roomAcross);
    QApplication::setLayoutDirection(Qt::RightToLeft);
    settle();
    EXPECT_EQ(gaps().first, ListRowDelegate::roomAcross);
    QApplication::setLayoutDirection(Qt::LeftToRight);
}
