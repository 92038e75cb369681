#include "DashboardViewTest.h"

#include "Palette.h"
#include "SymbolsOn.h"
#include "Type.h"

#include <QScrollBar>
#include <QWheelEvent>

using namespace Qt::StringLiterals;

namespace {

const QByteArray scheduled = R"([{"id": 1, "status": "scheduled", "signer_names": ["Priya Raman"],
    "scheduled_date": "2026-03-12", "scheduled_time": "2:30 PM", "document_type": "Deed"}])";
const QString clients = u"Recent Clients"_s;
const QString recent = u"Recent Remote Sessions"_s;

QByteArray manyClients(int count)
{
    QByteArrayList list;
    for (int i = 1; i <= count; ++i)
        list += R"({"name": "Client )" + QByteArray::number(i) + R"(", "email": "c@example.com"})";
    return '[' + list.join(',') + ']';
}

} // namespace

TEST_F(DashboardViewTest, ABusinessSeesItsCountsAndClients)
{
    openBusiness();
    EXPECT_TRUE(says(u"Business Dashboard"_s));
    EXPECT_TRUE(says(u"Schedule and track remote notary sessions for your clients."_s));
    EXPECT_TRUE(says(clients));
    EXPECT_EQ(tiles(), QStringList({u"Business Sessions: 0"_s, u"Clients: 0"_s, u"Upcoming: 0"_s}));
    answerAll({scheduled, R"({"clients": [{"name": "Priya Raman", "email": "priya@example.com"},
        {"client_name": "<b>Helen</b>"}, {"email": "only@example.com"}, {}]})"});
    EXPECT_EQ(tiles(), QStringList({u"Business Sessions: 1"_s, u"Clients: 4"_s, u"Upcoming: 1"_s}));
    EXPECT_EQ(rows(clients),
        QStringList({u"Priya Raman, priya@example.com"_s, u"<b>Helen</b>"_s, u"only@example.com"_s,
            u"Unnamed client"_s}));
}

TEST_F(DashboardViewTest, TheOfficeSeesItsCountsAndTheFirstSessions)
{
    openAdmin();
    EXPECT_TRUE(says(u"Admin Dashboard"_s));
    EXPECT_TRUE(says(recent));
    QByteArrayList sessions;
    for (int i = 1; i <= 9; ++i)
        sessions += R"({"id": "1", "client_name": "N)" + QByteArray::number(i) + R"("})";
    answerAll({'[' + sessions.join(',') + ']', R"([{"type": "walkin"}])", "[{}]"});
    EXPECT_EQ(tiles(),
        QStringList({u"Remote Sessions: 9"_s, u"Walk-In Records: 1"_s, u"Users: 1"_s, u"Pending: 9"_s}));
    ASSERT_EQ(rows(recent).size(), 8);
    EXPECT_EQ(rows(recent).constFirst(), u"N1, Date pending, requested"_s);
}

TEST_F(DashboardViewTest, ANotarySeesBothLists)
{
    openNotary();
    EXPECT_TRUE(says(u"Notary Dashboard"_s));
    answerAll({scheduled, R"([{"id": 8, "client_name": "Grace Obi"}])"});
    EXPECT_EQ(tiles(), QStringList({u"Assigned: 1"_s, u"Open Calls: 1"_s, u"Upcoming: 1"_s}));
    EXPECT_EQ(
        rows(u"Assigned Sessions"_s), QStringList(u"Priya Raman, 2026-03-12 2:30 PM, Deed, scheduled"_s));
    EXPECT_EQ(rows(u"Open Calls"_s), QStringList(u"Grace Obi, Date pending, Remote notary session"_s));
}

TEST_F(DashboardViewTest, SaysThatItLoadsThenThatThereIsNothing)
{
    openAdmin();
    EXPECT_TRUE(says(u"Loading..."_s));
    EXPECT_FALSE(says(u"No remote sessions found."_s));
    answerAll({"[]", "[]", "[]"});
    EXPECT_FALSE(says(u"Loading..."_s));
    EXPECT_TRUE(says(u"No remote sessions found."_s));
    EXPECT_EQ(list(recent), nullptr);

    openBusiness();
    EXPECT_TRUE(says(u"Loading..."_s));
    answerAll({"[]", "[]"});
    EXPECT_TRUE(says(u"No clients found."_s));

    openNotary();
    EXPECT_TRUE(says(u"Loading..."_s));
    answerAll({"[]", "[]"});
    EXPECT_TRUE(says(u"No assigned sessions."_s));
    EXPECT_TRUE(says(u"No open calls."_s));
}

TEST_F(DashboardViewTest, RowsStayWhileTheyLoadAgainAndWhenThatFails)
{
    openAdmin();
    answerAll({scheduled, "[]", "[]"});
    auto* refresh = named<Button>(*view, u"Refresh"_s);
    click(refresh);
    ASSERT_EQ(requestCount(), 6);
    EXPECT_TRUE(refresh->isLoading());
    EXPECT_FALSE(says(u"Loading..."_s));
    EXPECT_EQ(rows(recent).size(), 1);
    answer(3, "[]");
    fail(4);
    answer(5, "[]");
    EXPECT_EQ(rows(recent).size(), 1);
    EXPECT_EQ(tiles().constFirst(), u"Remote Sessions: 1"_s);
    ASSERT_NE(alert(), nullptr);
    EXPECT_EQ(alert()->title(), u"Cannot Load Admin Dashboard"_s);
    EXPECT_FALSE(refresh->isLoading());
    press(Qt::Key_Return);
    EXPECT_FALSE(view->findChild<RowList*>()->model()->rowCount() == 0);
    click(refresh);
    EXPECT_EQ(requestCount(), 9) << "and it can be tried again";
    answerAll({"[]", "[]", "[]"});
    EXPECT_TRUE(says(u"No remote sessions found."_s));
}

TEST_F(DashboardViewTest, AFailedFirstLoadIsOneAlert)
{
    openBusiness();
    answer(0, R"({"message": "Try <i>later</i>."})", 500);
    answer(1, "[]");
    ASSERT_NE(alert(), nullptr);
    EXPECT_EQ(alert()->title(), u"Cannot Load Business Dashboard"_s);
    EXPECT_EQ(window.findChildren<AlertDialog*>().size(), 1);
}

TEST_F(DashboardViewTest, ClickingRefreshTwiceLoadsOnce)
{
    openNotary();
    answerAll({"[]", "[]"});
    auto* refresh = named<Button>(*view, u"Refresh"_s);
    QTest::mouseDClick(refresh, Qt::LeftButton);
    QTest::keyClick(refresh, Qt::Key_Space);
    settle();
    EXPECT_EQ(requestCount(), 4);
    answerAll({"[]", "[]"});
}

TEST_F(DashboardViewTest, TheKeysOfEveryListLoadAgain)
{
    openBusiness();
    answerAll({"[]", "[]"});
    QTest::keyClick(view, Qt::Key_F5);
    settle();
    EXPECT_EQ(requestCount(), 4);
    answerAll({"[]", "[]"});
    QTest::keyClick(view, Qt::Key_R, Qt::ControlModifier);
    settle();
    EXPECT_EQ(requestCount(), 6);
    answerAll({scheduled, "[]"});
    EXPECT_EQ(tiles().constFirst(), u"Business Sessions: 1"_s);
}

TEST_F(DashboardViewTest, ButtonsLeadToTheirSections)
{
    struct Row
    {
        QString button;
        AppSection section;
    };
    openBusiness();
    answerAll({"[]", "[]"});
    for (const Row& row :
        {Row{u"Book for Client"_s, AppSection::book}, Row{u"View Sessions"_s, AppSection::sessions}}) {
        click(named<Button>(*view, row.button));
        EXPECT_EQ(router.selectedSection.value(), row.section);
    }
    openNotary();
    answerAll({"[]", "[]"});
    router.selectedSection = AppSection::notaryDashboard;
    click(named<Button>(*view, u"All Sessions"_s));
    EXPECT_EQ(router.selectedSection.value(), AppSection::sessions);
    openAdmin();
    answerAll({"[]", "[]", "[]"});
    for (const Row& row :
        {Row{u"Records"_s, AppSection::adminRecords}, Row{u"Users"_s, AppSection::adminUsers},
            Row{u"Notaries"_s, AppSection::adminNotaries}, Row{u"View All"_s, AppSection::sessions}}) {
        click(named<Button>(*view, row.button));
        EXPECT_EQ(router.selectedSection.value(), row.section);
    }
}

TEST_F(DashboardViewTest, RowsThatAreOnlyReadDoNotReact)
{
    openAdmin();
    answerAll({scheduled, "[]", "[]"});
    router.selectedSection = AppSection::adminDashboard;
    clickRow(recent, 0);
    EXPECT_EQ(router.selectedSection.value(), AppSection::adminDashboard);
    EXPECT_FALSE(list(recent)->selectionModel()->hasSelection());
    EXPECT_FALSE(list(recent)->hasFocus());
}

TEST_F(DashboardViewTest, TabGoesThroughTheButtonsInReadingOrder)
{
    openAdmin();
    answerAll({scheduled, "[]", "[]"});
    EXPECT_EQ(
        tabRound(), QStringList({u"Records"_s, u"Users"_s, u"Notaries"_s, u"Refresh"_s, u"View All"_s}));
    openBusiness();
    answerAll({scheduled, "[{}]"});
    EXPECT_EQ(tabRound(), QStringList({u"Book for Client"_s, u"View Sessions"_s}));
}

TEST_F(DashboardViewTest, ALongListIsAsHighAsItsRowsAndScrollsWithItsPage)
{
    openBusiness();
    answerAll({"[]", manyClients(1000)});
    RowList* shown = list(clients);
    ASSERT_NE(shown, nullptr);
    EXPECT_EQ(shown->model()->rowCount(), 1000);
    const int rowHeight = shown->visualRect(shown->model()->index(0, 0)).height();
    EXPECT_EQ(shown->viewport()->height(), 1000 * rowHeight);
    EXPECT_EQ(shown->visualRect(shown->model()->index(999, 0)).bottom(), shown->viewport()->height() - 1);

    QScrollBar* bar = view->verticalScrollBar();
    EXPECT_GT(bar->maximum(), 999 * rowHeight - least.height());
    const QPoint over = shown->viewport()->mapTo(&window, QPoint(40, 40));
    QWheelEvent wheel(over, window.mapToGlobal(over), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
        Qt::NoScrollPhase, false);
    QApplication::sendEvent(shown->viewport(), &wheel);
    EXPECT_FALSE(wheel.isAccepted()) << "the list leaves the wheel to its page";
    named<Button>(*view, u"Book for Client"_s)->setFocus();
    const int before = bar->value();
    press(Qt::Key_PageDown);
    EXPECT_GT(bar->value(), before);
}

TEST_F(DashboardViewTest, AViewThatGoesWhileLoadingLeavesNothingBehind)
{
    const std::weak_ptr<NotaryDashboardModel> gone = openNotary();
    window.setScreen(new QWidget);
    settle();
    EXPECT_FALSE(gone.expired());
    answerAll({"[]", "[]"});
    EXPECT_TRUE(gone.expired());
}

TEST_F(DashboardViewTest, AListIsAListToAssistiveTechnology)
{
    openBusiness();
    answerAll({"[]", R"([{"name": "Priya", "email": "p@example.com"}, {"name": "Helen"}])"});
    auto* spoken = QAccessible::queryAccessibleInterface(list(clients));
    ASSERT_NE(spoken, nullptr);
    EXPECT_EQ(spoken->role(), QAccessible::List);
    EXPECT_EQ(spoken->text(QAccessible::Name), clients);
    ASSERT_EQ(spoken->childCount(), 2);
    EXPECT_EQ(spoken->child(0)->text(QAccessible::Name), u"Priya, p@example.com"_s);
}

TEST_F(DashboardViewTest, EveryTitleOfATileCanBeReadInAnyTextSize)
{
    for (const int pixels : {13, 20, 26}) {
        Type::followDesktop(pixels);
        openAdmin(least);
        answerAll({"[]", "[]", "[]"});
        for (const MetricTile* tile : view->findChildren<MetricTile*>())
            EXPECT_GE(tile->width(), tile->sizeHint().width())
                << pixels << " " << qPrintable(tile->accessibleName());
    }
    Type::followDesktop(13);
}

TEST_F(DashboardViewTest, EveryTileAndShortcutHasItsSymbol)
{
    openAdmin();
    answerAll({"[]", "[]", "[]"});
    EXPECT_EQ(symbolsOn(*view),
        QStringList({u"video.badge.checkmark"_s, u"person.text.rectangle"_s, u"person.3.fill"_s,
            u"clock.badge.exclamationmark"_s, u"Records: tray.full.fill"_s, u"Users: person.3.fill"_s,
            u"Notaries: person.badge.shield.checkmark"_s, u"Refresh: arrow.clockwise"_s}));
    openNotary();
    answerAll({"[]", "[]"});
    EXPECT_EQ(symbolsOn(*view),
        QStringList({u"checkmark.seal.fill"_s, u"megaphone.fill"_s, u"calendar"_s,
            u"Refresh: arrow.clockwise"_s, u"All Sessions: doc.text.magnifyingglass"_s}));
    openBusiness();
    answerAll({"[]", "[]"});
    EXPECT_EQ(symbolsOn(*view),
        QStringList({u"doc.text.fill"_s, u"person.2.fill"_s, u"calendar"_s,
            u"Book for Client: calendar.badge.plus"_s, u"View Sessions: doc.text.magnifyingglass"_s}));
}

TEST_F(DashboardViewTest, ADividerStandsBetweenRowsAndAPillAtTheirEnds)
{
    openAdmin();
    answerAll({R"([{"id": 1, "client_name": "Ada"}, {"id": 2, "client_name": "Bo"}])", "[]", "[]"});
    RowList* shown = list(recent);
    const QImage picture = view->grab().toImage();
    QRect first = shown->visualRect(shown->model()->index(0, 0));
    first.moveTopLeft(shown->viewport()->mapTo(view, first.topLeft()));
    const auto has = [&picture](const QRect& area, const QColor& colour) {
        for (int y = area.top(); y <= area.bottom(); ++y) {
            for (int x = area.left(); x <= area.right(); ++x) {
                if (picture.pixelColor(x, y) == colour)
                    return true;
            }
        }
        return false;
    };
    const QColor divider = Palette::color(Brand::line);
    const QRect between(first.left() + 40, first.bottom() - 2, first.width() - 80, 5);
    EXPECT_TRUE(has(between, divider));
    EXPECT_FALSE(has(between.translated(0, first.height()), divider)) << "none under the last row";
    // Above the pill's word, within its ends.
    const QPoint inPill(first.right() - ListRowDelegate::roomAcross - 14, first.center().y() - 8);
    const QRect free(first.center().x(), first.top() + 4, 100, first.height() - 8);
    EXPECT_NE(picture.pixelColor(inPill), picture.pixelColor(free.center()));
    EXPECT_FALSE(has(free, picture.pixelColor(inPill)));
}

TEST_F(DashboardViewTest, FollowsItsWidth)
{
    openNotary(regular);
    answerAll({scheduled, scheduled});
    RowList* assigned = list(u"Assigned Sessions"_s);
    RowList* open = list(u"Open Calls"_s);
    const auto top = [this](QWidget* widget) { return widget->mapTo(&window, QPoint()).y(); };
    EXPECT_EQ(top(assigned), top(open)) << "side by side";
    window.resize(least);
    settle();
    EXPECT_GT(top(open), top(assigned) + assigned->height()) << "one above the other";
    window.resize(regular);
    settle();
    EXPECT_EQ(top(assigned), top(open));
}
