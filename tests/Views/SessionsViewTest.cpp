#include "Sessions/SessionsView.h"

#include "Components/AlertDialog.h"
#include "Components/Button.h"
#include "Components/ComboBox.h"
#include "Components/EmptyStateView.h"
#include "Components/LoadingLine.h"
#include "Components/SearchField.h"
#include "Launch.h"
#include "Lists/RowListView.h"
#include "ScreensViewTest.h"
#include "Sessions/SessionDetailView.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QLabel>
#include <QTemporaryFile>

using namespace Qt::StringLiterals;

static const QByteArray threeSessions = R"({"sessions":[
    {"id":1,"scheduled_date":"2025-06-01","status":"scheduled","signer_names":["Priya Raman"],
     "document_type":"Deed","client_email":"priya@example.com"},
    {"id":2,"scheduled_date":"2025-06-03","status":"requested","signer_names":["<b>Tomas</b> Alder"]},
    {"id":3,"scheduled_date":"2025-06-02","status":"COMPLETED","signer_names":["Grace Obi"]}]})";

class SessionsViewTest : public ScreensViewTest
{
protected:
    SessionsViewTest() { signIn(account(u"priya"_s)); }

    void open()
    {
        model = std::make_shared<SessionsModel>(context);
        view = std::make_unique<SessionsView>(model);
        view->resize(960, 728);
        show(*view);
    }

    /// The list has been loaded, and the detail of its first session waits for the answer.
    void openLoaded()
    {
        open();
        answer(0, threeSessions);
        ASSERT_EQ(requestCount(), 2);
        EXPECT_EQ(line(1), u"GET /remote-notary/sessions/2"_s);
    }

    RowListView* list() { return view->findChild<RowListView*>(); }
    /// The rows that are highlighted.
    QList<int> selectedRows()
    {
        QList<int> selected;
        for (const QModelIndex& index : list()->selectionModel()->selectedIndexes())
            selected += index.row();
        return selected;
    }
    /// The one on screen.
    AlertDialog* alert()
    {
        for (auto* dialog : view->findChildren<AlertDialog*>()) {
            if (dialog->isVisible())
                return dialog;
        }
        return nullptr;
    }
    SearchField* search() { return view->findChild<SearchField*>(); }

    /// What a screen reader says of the rows on screen.
    QStringList rows()
    {
        QStringList texts;
        for (int row = 0; row < list()->model()->rowCount(); ++row)
            texts += list()->model()->index(row, 0).data(Qt::AccessibleTextRole).toString();
        return texts;
    }

    template <typename Widget>
    bool isShown()
    {
        const auto* widget = view->findChild<Widget*>();
        return widget && widget->isVisible();
    }

    std::shared_ptr<SessionsModel> model;
    std::unique_ptr<SessionsView> view;
};

TEST_F(SessionsViewTest, SaysThatItLoadsUntilItShowsRows)
{
    open();
    EXPECT_TRUE(isShown<LoadingLine>());
    answer(0, threeSessions);
    EXPECT_EQ(line(1), u"GET /remote-notary/sessions/2"_s);
    EXPECT_FALSE(isShown<LoadingLine>());
    EXPECT_EQ(rows(),
        QStringList({u"<b>Tomas</b> Alder, 2025-06-03, Remote notary session, requested"_s,
            u"Grace Obi, 2025-06-02, Remote notary session, COMPLETED"_s,
            u"Priya Raman, 2025-06-01, Deed, scheduled"_s}));
}

TEST_F(SessionsViewTest, AClickSelectsARowAndShowsItsSession)
{
    openLoaded();
    EXPECT_EQ(model->selectedSession()->id, 2);
    QTest::mouseClick(
        list()->viewport(), Qt::LeftButton, {}, list()->visualRect(list()->model()->index(2, 0)).center());
    settle();
    EXPECT_EQ(model->selectedSession()->id, 1);
    EXPECT_EQ(list()->currentIndex().row(), 2);
    EXPECT_EQ(line(2), u"GET /remote-notary/sessions/1"_s);
    EXPECT_TRUE(isShown<SessionDetailView>());
}

TEST_F(SessionsViewTest, TheArrowKeysGoFromTheSearchThroughTheList)
{
    openLoaded();
    search()->setFocus();
    QTest::keyClick(search(), Qt::Key_Down);
    EXPECT_EQ(QApplication::focusWidget(), list());
    QTest::keyClick(list(), Qt::Key_Down);
    settle();
    EXPECT_EQ(model->selectedSession()->id, 3);
    EXPECT_EQ(line(2), u"GET /remote-notary/sessions/3"_s);
}

TEST_F(SessionsViewTest, EachKeystrokeFiltersAndEscapeShowsAllAgain)
{
    openLoaded();
    search()->setFocus();
    QTest::keyClicks(search(), u"ALDER"_s);
    settle();
    EXPECT_EQ(rows().size(), 1);
    QTest::keyClicks(search(), u"x"_s);
    settle();
    EXPECT_EQ(rows().size(), 0);
    EXPECT_FALSE(list()->isVisible());
    QTest::keyClick(search(), Qt::Key_Escape);
    settle();
    EXPECT_EQ(rows().size(), 3);
    EXPECT_EQ(selectedRows(), QList{0}) << "the selected session is shown as such again";
}

TEST_F(SessionsViewTest, TheStatusPickerFilters)
{
    openLoaded();
    auto* picker = named<ComboBox>(*view, u"Status"_s);
    ASSERT_NE(picker, nullptr);
    EXPECT_EQ(picker->currentText(), u"All Statuses"_s);
    picker->setFocus();
    QTest::keyClick(picker, Qt::Key_End);
    QTest::keyClick(picker, Qt::Key_Up);
    settle();
    EXPECT_EQ(model->statusFilter.value(), u"completed"_s);
    EXPECT_EQ(rows().size(), 1);
}

TEST_F(SessionsViewTest, AReloadKeepsRowsSelectionAndPlace)
{
    openLoaded();
    model->select(1);
    EXPECT_EQ(line(2), u"GET /remote-notary/sessions/1"_s);
    QTest::keyClick(view.get(), Qt::Key_F5);
    settle();
    ASSERT_EQ(requestCount(), 5);
    EXPECT_EQ(line(4), u"GET /remote-notary/sessions/1"_s) << "the detail is loaded again too";
    EXPECT_EQ(rows().size(), 3) << "the list stays while it loads again";
    answer(3, threeSessions);
    EXPECT_EQ(model->selectedSession()->id, 1);
    EXPECT_EQ(list()->currentIndex().row(), 2);
}

TEST_F(SessionsViewTest, AFailedReloadIsOneAlertAndKeepsTheList)
{
    openLoaded();
    QTest::keyClick(view.get(), Qt::Key_F5);
    settle();
    EXPECT_EQ(line(3), u"GET /remote-notary/sessions/2"_s);
    fail(2);
    ASSERT_NE(alert(), nullptr);
    EXPECT_EQ(alert()->title(), u"Cannot Load Sessions"_s);
    EXPECT_EQ(rows().size(), 3);
}

TEST_F(SessionsViewTest, FailuresOfAllPartsAtOnceAreReadOneAfterTheOther)
{
    openLoaded();
    for (const qsizetype number : {1, 2, 3})
        answer(number, number == 1 ? R"({"id": 2})" : "[]");
    const std::shared_ptr<SessionDetailModel> detail = model->detail();
    QTemporaryFile file;
    ASSERT_TRUE(file.open());
    detail->documents()->addUploads({QUrl::fromLocalFile(file.fileName())});
    detail->messages()->newMessage = u"Hello"_s;
    launch(detail->messages()->sendMessage());
    launch(detail->documents()->uploadPendingFiles());
    model->refresh();
    settle();
    ASSERT_EQ(requestCount(), 8);
    for (const qsizetype number : {4, 5, 6, 7})
        fail(number);

    QStringList titles;
    while (const AlertDialog* open = alert()) {
        titles += open->title();
        click(named<Button>(*view, u"OK"_s));
    }
    EXPECT_EQ(titles,
        (QStringList{u"Cannot Send Message"_s, u"Cannot Upload File"_s, u"Cannot Load Sessions"_s,
            u"Cannot Load Session"_s}))
        << "one after the other, in the order in which they came";
    const QList<QList<QString>> left{
        alertOf(*model), alertOf(*detail), alertOf(*detail->messages()), alertOf(*detail->documents())};
    EXPECT_THAT(left, testing::Each(testing::IsEmpty())) << "none comes up again";
    EXPECT_EQ(detail->messages()->newMessage.value(), u"Hello"_s);
    EXPECT_EQ(detail->documents()->pendingUploads().size(), 1);
    EXPECT_EQ(rows().size(), 3);
}

TEST_F(SessionsViewTest, WithoutSessionsBothPanesSayWhatToDo)
{
    open();
    answer(0, R"({"sessions":[]})");
    QStringList names;
    for (const auto* state : view->findChildren<EmptyStateView*>()) {
        if (state->isVisible())
            names += state->accessibleName();
    }
    EXPECT_EQ(names.size(), 2);
    EXPECT_FALSE(list()->isVisible());
}

TEST_F(SessionsViewTest, AViewThatGoesWhileLoadingLeavesNothingBehind)
{
    open();
    EXPECT_FALSE(webSession->isAbandoned(0));
    view.reset();
    EXPECT_TRUE(webSession->isAbandoned(0)) << "nobody waits for the rows any more";
    EXPECT_TRUE(model->sessions().isEmpty());
    EXPECT_EQ(model->alert.value(), std::nullopt);
}

struct OddText
{
    const char* name;
    QString text;
};

class SessionsViewOddText : public SessionsViewTest, public testing::WithParamInterface<OddText>
{
protected:
    /// A session with the text in every field that is shown, as a bridge would answer it.
    static QByteArray sessionOf(const QString& text)
    {
        const QJsonObject session{{u"id"_s, 7}, {u"signer_names"_s, QJsonArray{text}}, {u"status"_s, text},
            {u"document_type"_s, text}, {u"scheduled_date"_s, text}, {u"client_email"_s, text}};
        return QJsonDocument(session).toJson();
    }
};

/// Nothing that a server sends changes the shape of a list, or is anything but text.
TEST_P(SessionsViewOddText, IsShownInARowLikeAnyOther)
{
    open();
    answer(requestCount() - 1, "[" + sessionOf(u"plain"_s) + "," + sessionOf(GetParam().text) + "]");
    ASSERT_EQ(list()->model()->rowCount(), 2);
    const QRect plain = list()->visualRect(list()->model()->index(0, 0));
    const QRect odd = list()->visualRect(list()->model()->index(1, 0));
    EXPECT_EQ(odd.size(), plain.size());
    EXPECT_GT(odd.height(), 0);
    for (int row = 0; row < 2; ++row) {
        QTest::mouseClick(list()->viewport(), Qt::LeftButton, {},
            list()->visualRect(list()->model()->index(row, 0)).center());
        settle();
        EXPECT_FALSE(view->grab().isNull());
    }
    for (int request = 1; request < requestCount(); ++request)
        EXPECT_EQ(line(request), u"GET /remote-notary/sessions/7"_s);
    for (const QLabel* label : view->findChildren<QLabel*>())
        EXPECT_EQ(label->textFormat(), Qt::PlainText);
}

INSTANTIATE_TEST_SUITE_P(Texts, SessionsViewOddText,
    testing::Values(OddText{"Nul", u"a"_s + QChar::Null + u"b"_s},
        OddText{"LoneSurrogate", u"a"_s + QChar(0xD800) + u"b"_s},
        OddText{"Override", u"a"_s + QChar(0x202E) + u"gnp.deed"_s},
        OddText{"LineBreaks", u"a\r\nb\u2028c\td"_s}, OddText{"Markup", u"<b>x</b><img src=file:///x>"_s},
        OddText{"Combining", u"a"_s + QString(5'000, QChar(0x0301))},
        OddText{"Endless", QString(2'000'000, u'x')}, OddText{"EndlessWords", u"word "_s.repeated(400'000)}),
    [](const auto& row) { return std::string(row.param.name); });
