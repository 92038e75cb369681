#include "Sessions/SessionsView.h"

#include "Components/Button.h"
#include "Components/QuestionDialog.h"
#include "Launch.h"
#include "Lists/RowListView.h"
#include "QuestionPresenter.h"
#include "ScreensViewTest.h"

#include <QPlainTextEdit>

using namespace Qt::StringLiterals;

/// Somebody who is there before their screens are made.
class NotarysScreens : public ScreensViewTest
{
protected:
    NotarysScreens() { signIn(account(u"maya"_s, {AppRole::notary}), AppRole::notary); }
};

/// Six sessions, of which the first is selected and loaded, on the screen of a notary.
class SessionsViewSelectionTest : public NotarysScreens
{
protected:
    SessionsViewSelectionTest()
    {
        view.resize(960, 728);
        presentQuestions(&view, leaving.question, [this](bool leaves) { leaving.answer(leaves); });
        show(view);
        answer(0, R"([{"id":1,"scheduled_date":"2025-06-06"},{"id":2,"scheduled_date":"2025-06-05"},
            {"id":3,"scheduled_date":"2025-06-04"},{"id":4,"scheduled_date":"2025-06-03"},
            {"id":5,"scheduled_date":"2025-06-02"},{"id":6,"scheduled_date":"2025-06-01"}])");
        answerDetail(R"({"id":1,"client_name":"First"})");
        list = view.findChild<RowListView*>();
        list->setFocus();
        asked = requestCount();
    }

    void answerDetail(const QByteArray& session)
    {
        answer(requestCount() - 1, session);
        answer(requestCount() - 1, "[]");
        answer(requestCount() - 1, "[]");
    }

    /// What has been asked for since the list was shown.
    QStringList requests()
    {
        QStringList lines;
        for (qsizetype number = asked; number < requestCount(); ++number)
            lines += line(number);
        return lines;
    }

    QPoint middleOf(int row) { return list->visualRect(list->model()->index(row, 0)).center(); }
    void clickRow(int row)
    {
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, middleOf(row));
        settle();
    }

    /// The rows that are highlighted.
    QList<int> selectedRows()
    {
        QList<int> selected;
        for (const QModelIndex& index : list->selectionModel()->selectedIndexes())
            selected += index.row();
        return selected;
    }

    /// What the keyboard does while a key is held down.
    void repeat(Qt::Key key, int times)
    {
        for (int time = 0; time < times; ++time) {
            QKeyEvent release(QEvent::KeyRelease, key, {}, {}, true);
            QKeyEvent press(QEvent::KeyPress, key, {}, {}, true);
            QCoreApplication::sendEvent(list, &release);
            QCoreApplication::sendEvent(list, &press);
        }
        settle();
    }

    QPlainTextEdit* note() { return named<QPlainTextEdit>(view, u"Status Note"_s); }
    QuestionDialog* question() { return view.findChild<QuestionDialog*>(); }
    void answerQuestion(bool leaves)
    {
        click(leaves ? question()->yesButton() : question()->noButton());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    std::shared_ptr<SessionsModel> model = std::make_shared<SessionsModel>(context);
    SessionsView view{model};
    RowListView* list = nullptr;
    qsizetype asked = 0;
};

TEST_F(SessionsViewSelectionTest, AHeldArrowKeyLoadsWhereItBeginsAndWhereItRests)
{
    QTest::keyPress(list, Qt::Key_Down);
    repeat(Qt::Key_Down, 3);
    EXPECT_EQ(selectedRows(), QList{4}) << "the highlight goes along";
    EXPECT_EQ(requests(), QStringList{u"GET /remote-notary/sessions/2"_s});
    QTest::keyRelease(list, Qt::Key_Down);
    settle();
    EXPECT_EQ(
        requests(), (QStringList{u"GET /remote-notary/sessions/2"_s, u"GET /remote-notary/sessions/5"_s}));
    EXPECT_EQ(model->selectedSession()->id, 5);
    EXPECT_EQ(selectedRows(), QList{4});
}

TEST_F(SessionsViewSelectionTest, AKeyHeldInAListThatLosesTheFocusRestsThere)
{
    QTest::keyPress(list, Qt::Key_Down);
    repeat(Qt::Key_Down, 1);
    list->clearFocus();
    settle();
    EXPECT_EQ(model->selectedSession()->id, 3);
    EXPECT_EQ(requests().size(), 2);
}

TEST_F(SessionsViewSelectionTest, AScreenThatGoesWhileAKeyIsHeldSelectsNothingMore)
{
    auto going = std::make_unique<SessionsView>(model);
    show(*going);
    QApplication::setActiveWindow(going.get());
    EXPECT_EQ(requests().size(), 2) << "the list and the selected session";
    auto* held = going->findChild<RowListView*>();
    held->setFocus();
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Down, {}, {}, true);
    QCoreApplication::sendEvent(held, &press);
    ASSERT_TRUE(held->hasFocus());
    going.reset();
    EXPECT_EQ(model->selectedSession()->id, 1);
}

TEST_F(SessionsViewSelectionTest, AReloadWhileAKeyIsHeldLeavesTheHighlight)
{
    QTest::keyPress(list, Qt::Key_Down);
    repeat(Qt::Key_Down, 2);
    launch(model->load());
    settle();
    answer(requestCount() - 1, R"([{"id":1},{"id":2},{"id":3},{"id":4}])");
    EXPECT_EQ(selectedRows(), QList{3});
    QTest::keyRelease(list, Qt::Key_Down);
    settle();
    EXPECT_EQ(model->selectedSession()->id, 4);
    EXPECT_EQ(requests().constLast(), u"GET /remote-notary/sessions/4"_s);
    EXPECT_EQ(requests().size(), 3);
}

TEST_F(SessionsViewSelectionTest, ADragOverRowsLoadsWhereItBeginsAndWhereItEnds)
{
    QTest::mousePress(list->viewport(), Qt::LeftButton, {}, middleOf(1));
    for (const int row : {2, 3}) {
        QMouseEvent move(QEvent::MouseMove, middleOf(row), list->viewport()->mapToGlobal(middleOf(row)),
            Qt::NoButton, Qt::LeftButton, {});
        QCoreApplication::sendEvent(list->viewport(), &move);
    }
    settle();
    EXPECT_EQ(requests(), QStringList{u"GET /remote-notary/sessions/2"_s});
    QTest::mouseRelease(list->viewport(), Qt::LeftButton, {}, middleOf(3));
    settle();
    EXPECT_EQ(model->selectedSession()->id, 4);
    EXPECT_EQ(requests().size(), 2);
    EXPECT_EQ(line(asked + 1), u"GET /remote-notary/sessions/4"_s);
}

TEST_F(SessionsViewSelectionTest, ClickingTheSelectedRowAgainLoadsNothing)
{
    clickRow(0);
    clickRow(0);
    EXPECT_TRUE(requests().isEmpty());
}

TEST_F(SessionsViewSelectionTest, AQuickChangeOfRowsShowsTheLastOneOnly)
{
    clickRow(1);
    clickRow(2);
    ASSERT_EQ(requests().size(), 2);
    answer(asked + 1, R"({"id":3,"client_name":"Third"})");
    answer(asked, R"({"id":2,"client_name":"Second"})");
    EXPECT_EQ(requests().size(), 3);
    EXPECT_EQ(line(asked + 2), u"GET /remote-notary/sessions/3/messages"_s);
    EXPECT_EQ(model->detail()->session()->id, 3);
}

// With something typed

class SessionsViewEditing : public SessionsViewSelectionTest
{
protected:
    SessionsViewEditing()
    {
        note()->setFocus();
        QTest::keyClicks(note(), u"Half a note"_s);
    }
};

TEST_F(SessionsViewEditing, AClickOnAnotherRowAsksAndKeepsTheSelection)
{
    clickRow(2);
    ASSERT_NE(question(), nullptr);
    EXPECT_EQ(question()->title(), u"Discard Changes?"_s);
    EXPECT_EQ(selectedRows(), QList{0});
    EXPECT_EQ(list->currentIndex().row(), 0);
    EXPECT_TRUE(requests().isEmpty());

    answerQuestion(false);
    EXPECT_EQ(note()->toPlainText(), u"Half a note"_s);
    EXPECT_EQ(selectedRows(), QList{0});
    clickRow(2);
    EXPECT_NE(question(), nullptr) << "and asks again";
}

TEST_F(SessionsViewEditing, DiscardingGoesToTheRow)
{
    clickRow(2);
    answerQuestion(true);
    EXPECT_EQ(question(), nullptr);
    EXPECT_EQ(selectedRows(), QList{2});
    EXPECT_EQ(requests(), QStringList{u"GET /remote-notary/sessions/3"_s});
    answerDetail(R"({"id":3})");
    EXPECT_EQ(note()->toPlainText(), QString());
}

TEST_F(SessionsViewEditing, TheKeyboardAsksToo)
{
    list->setFocus();
    QTest::keyClick(list, Qt::Key_Down);
    settle();
    ASSERT_NE(question(), nullptr);
    EXPECT_EQ(selectedRows(), QList{0});
    QTest::keyClick(question()->noButton(), Qt::Key_Escape);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(list->hasFocus());
    QTest::keyClick(list, Qt::Key_End);
    settle();
    QTest::keyClick(question()->noButton(), Qt::Key_Tab);
    QTest::keyClick(question()->yesButton(), Qt::Key_Return);
    settle();
    EXPECT_EQ(model->selectedSession()->id, 6);
    EXPECT_EQ(requests(), QStringList{u"GET /remote-notary/sessions/6"_s});
}

TEST_F(SessionsViewEditing, ARefreshAsksNothingAndKeepsWhatIsTyped)
{
    QTest::keyClick(&view, Qt::Key_F5);
    settle();
    EXPECT_EQ(question(), nullptr);
    answer(asked + 1, R"({"id":1,"status_note":"From the bridge"})");
    EXPECT_EQ(note()->toPlainText(), u"Half a note"_s);
    answer(asked, R"([{"id":1},{"id":2}])");
    EXPECT_EQ(note()->toPlainText(), u"Half a note"_s);
    EXPECT_EQ(question(), nullptr);
    EXPECT_EQ(requests().constLast(), u"GET /remote-notary/sessions/1/messages"_s);
}

TEST_F(SessionsViewEditing, AfterASaveAnotherRowIsFree)
{
    click(named(view, u"Save Notary Update"_s));
    clickRow(1);
    ASSERT_NE(question(), nullptr);
    EXPECT_EQ(question()->title(), u"Still Saving"_s);
    answer(asked, "{}");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(question(), nullptr);
    EXPECT_EQ(selectedRows(), QList{1});
    EXPECT_EQ(requests(),
        (QStringList{u"POST /notary/remote-notary/sessions/1/status"_s,
            u"GET /remote-notary/sessions?scope=notary_assigned"_s, u"GET /remote-notary/sessions/2"_s}));
}

TEST_F(SessionsViewEditing, TheSearchFiltersWithoutAsking)
{
    model->search = u"2025-06-01"_s;
    settle();
    EXPECT_EQ(list->model()->rowCount(), 1);
    EXPECT_TRUE(selectedRows().isEmpty());
    EXPECT_EQ(question(), nullptr);
    EXPECT_EQ(note()->toPlainText(), u"Half a note"_s);
    model->search = QString();
    EXPECT_EQ(selectedRows(), QList{0});
}
