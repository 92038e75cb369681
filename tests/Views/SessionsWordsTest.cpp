#include "Components/AlertDialog.h"
#include "Components/ListRowDelegate.h"
#include "Lists/RowListView.h"
#include "Palette.h"
#include "ScreensViewTest.h"
#include "Sessions/SessionsView.h"
#include "SymbolsOn.h"

#include <QWindow>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

using testing::Contains;
using testing::IsSupersetOf;
using testing::Not;

namespace {

/// What the screen of the sessions says and shows, to somebody who may act in every role.
class SessionsWords : public ScreensViewTest
{
protected:
    void open(AppRole role = AppRole::client)
    {
        signIn(account(u"Maya"_s, {AppRole::business, AppRole::notary, AppRole::admin}), role);
        view = std::make_unique<SessionsView>(std::make_shared<SessionsModel>(context));
        view->resize(960, 728);
        show(*view);
    }
    RowListView* list() const { return view->findChild<RowListView*>(); }
    /// On the screen.
    QRect row(int number) const
    {
        const QRect rect = list()->visualRect(list()->model()->index(number, 0));
        return {list()->viewport()->mapTo(view.get(), rect.topLeft()), rect.size()};
    }
    QImage picture() const { return view->grab().toImage(); }
    /// The requests that nobody answers are those that are meant.
    void expectFrom(qsizetype first, const QStringList& lines)
    {
        QStringList asked;
        for (qsizetype number = first; number < requestCount(); ++number)
            asked += line(number);
        EXPECT_EQ(asked, lines);
    }

    std::unique_ptr<SessionsView> view;
};

const QByteArray two = R"([{"id": 1, "client_name": "Ada", "scheduled_date": "2026-03-12"},
    {"id": 2, "client_name": "Bo", "scheduled_date": "2026-03-11"}])";

TEST_F(SessionsWords, WhileLoadingAndWhenNothingIsSelected)
{
    open();
    EXPECT_THAT(texts(*view),
        IsSupersetOf({u"Sessions"_s, u"Loading sessions..."_s, u"Select a Session"_s,
            u"Choose a session from the list to view details, messages, and admin or notary controls."_s}));
    EXPECT_THAT(texts(*view), Not(Contains(u"No Sessions Found"_s)));
    EXPECT_THAT(symbolsOn(*view), Contains(u"hand.point.left.fill"_s));
    expectFrom(0, {u"GET /remote-notary/sessions"_s});
}

TEST_F(SessionsWords, WhenThereIsNone)
{
    open();
    answer(0, "[]");
    EXPECT_THAT(texts(*view),
        IsSupersetOf({u"No Sessions Found"_s,
            u"Book a remote notary session or adjust your search filters."_s, u"Select a Session"_s}));
    EXPECT_THAT(texts(*view), Not(Contains(u"Loading sessions..."_s)));
    EXPECT_THAT(symbolsOn(*view), IsSupersetOf({u"doc.text.magnifyingglass"_s, u"hand.point.left.fill"_s}));
}

TEST_F(SessionsWords, WhenTheSelectedOneCannotBeLoaded)
{
    open();
    answer(0, two);
    fail(1);
    EXPECT_THAT(
        texts(*view), IsSupersetOf({u"Session Not Found"_s, u"The selected session could not be loaded."_s}));
    EXPECT_THAT(
        symbolsOn(*view), IsSupersetOf({u"exclamationmark.triangle"_s, u"Try Again: arrow.clockwise"_s}));
}

TEST_F(SessionsWords, UnderTheTitleFollowTheRoleThatIsActive)
{
    struct Words
    {
        AppRole role;
        QString subtitle;
    };
    const QList<Words> all{{AppRole::client, u"Your remote notary sessions."_s},
        {AppRole::business, u"Business remote sessions."_s},
        {AppRole::notary, u"Assigned and open remote notary sessions."_s},
        {AppRole::admin, u"All remote notary sessions."_s}};
    open();
    for (const Words& words : all) {
        auth.switchRole(words.role);
        settle();
        for (const Words& other : all)
            EXPECT_EQ(texts(*view).contains(other.subtitle), other.role == words.role)
                << other.subtitle.toStdString();
    }
    expectFrom(0,
        {u"GET /remote-notary/sessions"_s, u"GET /remote-notary/sessions?scope=business"_s,
            u"GET /remote-notary/sessions?scope=notary_assigned"_s,
            u"GET /remote-notary/sessions?scope=admin_all"_s});
}

TEST_F(SessionsWords, OfTheRoleBeforeGoWithItsRows)
{
    open(AppRole::admin);
    answer(0, two);
    auth.switchRole(AppRole::notary);
    settle();
    expectFrom(
        1, {u"GET /remote-notary/sessions/1"_s, u"GET /remote-notary/sessions?scope=notary_assigned"_s});
    EXPECT_EQ(list()->model()->rowCount(), 0);
    EXPECT_THAT(texts(*view), IsSupersetOf({u"Loading sessions..."_s, u"Select a Session"_s}));
    fail(requestCount() - 1);
    EXPECT_EQ(list()->model()->rowCount(), 0) << "also when the new ones do not come";
    EXPECT_THAT(texts(*view), Contains(u"Assigned and open remote notary sessions."_s));
}

TEST_F(SessionsWords, OfARowEndInAChevron)
{
    open();
    answer(0, two);
    expectFrom(1, {u"GET /remote-notary/sessions/1"_s});
    const QImage shown = picture();
    const QRect unselected = row(1);
    // The symbol's box at the trailing end, and what lies left of it, under the pill.
    const QRect box(
        unselected.right() - ListRowDelegate::roomAcross - 15, unselected.center().y() - 8, 16, 16);
    int strokes = 0;
    for (int y = box.top(); y <= box.bottom(); ++y) {
        for (int x = box.left(); x <= box.right(); ++x)
            strokes
                += shown.pixelColor(x, y) != shown.pixelColor(unselected.left() + 4, unselected.top() + 4);
    }
    EXPECT_GT(strokes, 10);
}

TEST_F(SessionsWords, OfARowLightUpUnderThePointer)
{
    open();
    answer(0, two);
    expectFrom(1, {u"GET /remote-notary/sessions/1"_s});
    const QPoint spot(row(1).left() + 4, row(1).center().y());
    QTest::mouseMove(view->window()->windowHandle(), {view->width() - 40, view->height() - 40});
    settle();
    EXPECT_NE(picture().pixelColor(spot), Palette::color(Brand::panel));
    QTest::mouseMove(view->window()->windowHandle(), row(1).center());
    settle();
    EXPECT_EQ(picture().pixelColor(spot), Palette::color(Brand::panel));
    QTest::mouseMove(view->window()->windowHandle(), row(0).center());
    settle();
    EXPECT_NE(picture().pixelColor(spot), Palette::color(Brand::panel));
}

TEST_F(SessionsWords, OfASaveAreReadBeforeThoseOfAFailedReload)
{
    open(AppRole::admin);
    answer(0, two);
    answer(1, R"({"id": 1, "client_name": "Ada"})");
    for (const qsizetype part : {2, 3, 4})
        answer(part, "[]");
    click(named<Button>(*view, u"Save Admin Changes"_s));
    answer(5, "{}");
    EXPECT_EQ(line(6), u"GET /remote-notary/sessions?scope=admin_all"_s);
    EXPECT_EQ(line(7), u"GET /remote-notary/sessions/1"_s);
    fail(6);
    fail(7);
    QStringList read;
    while (auto* ok = named<Button>(*view, u"OK"_s)) {
        for (const auto* alert : view->findChildren<AlertDialog*>())
            read += alert->isVisible() ? QStringList{alert->title()} : QStringList();
        click(ok);
    }
    EXPECT_EQ(read, (QStringList{u"Saved"_s, u"Cannot Load Sessions"_s, u"Cannot Load Session"_s}));
}

// The session's own symbols

TEST_F(SessionsWords, OfASessionStandBesideTheirSymbols)
{
    open(AppRole::admin);
    answer(0, R"([{"id": 1}])");
    answer(1, R"({"id": 1, "status": "requested", "client_name": "Ada", "client_email": "ada@example.com"})");
    answer(2, "[]");
    answer(
        3, R"([{"id": 5, "label": "Deed", "file_name": "deed.pdf"}, {"id": 6, "file_name": "sheet.xlsx"}])");
    EXPECT_THAT(symbolsOn(*view),
        IsSupersetOf(
            {u"calendar"_s, u"doc.text.fill"_s, u"person.fill"_s, u"envelope.fill"_s, u"person.2.fill"_s,
                u"checkmark.seal.fill"_s, u"Delete Session: trash"_s, u"Open: arrow.up.right.square"_s,
                u"icloud.and.arrow.up.fill"_s, u"doc.richtext.fill"_s, u"tablecells.fill"_s}));
    expectFrom(4, {u"GET /admin/notaries"_s});
}

} // namespace
