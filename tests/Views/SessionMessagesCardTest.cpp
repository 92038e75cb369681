#include "SessionMessagesCardTest.h"

#include "Launch.h"

#include <QClipboard>

TEST_F(SessionMessagesCardTest, AnEmptyThreadSaysSo)
{
    show();
    EXPECT_TRUE(shows(u"Messages"_s));
    EXPECT_TRUE(shows(u"No messages yet."_s));
    EXPECT_TRUE(rows().isEmpty());
    ASSERT_NE(sendButton(), nullptr);
    messages->setMessages(threadOf({u"Hello"_s}));
    settle();
    EXPECT_FALSE(shows(u"No messages yet."_s));
    EXPECT_EQ(rows().size(), 1);
    messages->setMessages({});
    settle();
    EXPECT_TRUE(shows(u"No messages yet."_s));
    EXPECT_TRUE(rows().isEmpty());
}

TEST_F(SessionMessagesCardTest, AMessageShowsItsSenderTimeAndText)
{
    const SessionMessage message{
        1, u"notary"_s, u"Maya Whitfield"_s, u"m@example.com"_s, u"Hello\nthere"_s, u"2026-03-10 09:42:10"_s};
    show({message});
    EXPECT_TRUE(shows(u"Maya Whitfield"_s));
    EXPECT_TRUE(shows(u"2026-03-10 09:42:10"_s));
    ASSERT_EQ(rows().size(), 1);
    EXPECT_EQ(textOf(rows().constFirst()), u"Hello\nthere"_s);
}

TEST_F(SessionMessagesCardTest, AThreadThatCouldNotBeLoadedIsAskedForAgain)
{
    SessionCardsTest::show();
    EXPECT_TRUE(shows(u"Loading messages..."_s));
    EXPECT_FALSE(shows(u"No messages yet."_s));
    launch(messages->loadMessages());
    settle();
    fail(0);
    EXPECT_EQ(alert()->title(), u"Cannot Load Messages"_s);
    press(Qt::Key_Return);
    EXPECT_TRUE(shows(u"The messages could not be loaded."_s));
    EXPECT_FALSE(shows(u"Loading messages..."_s));
    EXPECT_FALSE(shows(u"No messages yet."_s));
    ASSERT_NE(control<Button>(u"Try Again to Load the Messages"_s), nullptr);
    EXPECT_EQ(control<Button>(u"Try Again to Load the Messages"_s)->title(), u"Try Again"_s);

    write(u"Hello"_s);
    click(sendButton());
    EXPECT_EQ(line(1), u"POST /remote-notary/sessions/7/messages"_s);
    answer(1, "{}");
    answer(2, R"([{"id": 1, "message": "Hello"}])");
    EXPECT_EQ(rows().size(), 1);
    EXPECT_EQ(control(u"Try Again to Load the Messages"_s), nullptr);
}

TEST_F(SessionMessagesCardTest, AThreadOnScreenStaysWhenItCannotBeLoadedAgain)
{
    show(threadOf({u"Hello"_s}));
    launch(messages->loadMessages());
    settle();
    fail(0);
    press(Qt::Key_Return);
    EXPECT_EQ(rows().size(), 1);
    EXPECT_TRUE(shows(u"The messages could not be loaded."_s));
    control(u"Try Again to Load the Messages"_s)->setFocus(Qt::TabFocusReason);
    press(Qt::Key_Space);
    EXPECT_FALSE(shows(u"The messages could not be loaded."_s));
    answer(1, "[]");
    EXPECT_TRUE(shows(u"No messages yet."_s));
}

struct TextRow
{
    std::string name;
    QString text;
    QString shown;
};

void PrintTo(const TextRow& row, std::ostream* out)
{
    *out << row.name;
}

class SessionMessageTexts : public SessionMessagesCardTest, public testing::WithParamInterface<TextRow>
{ };

TEST_P(SessionMessageTexts, AreShownAsTheyStandAndCanBeCopied)
{
    SessionMessage message = messageOf(1, GetParam().text);
    message.senderName = GetParam().text;
    message.createdAt = GetParam().text;
    show({message});
    ASSERT_EQ(rows().size(), 1);
    SelectableText* text = rows().constFirst()->text();
    EXPECT_EQ(text->toPlainText(), GetParam().shown);
    EXPECT_LE(rows().constFirst()->width(), thread()->width());
    EXPECT_EQ(text->document()->size().height(), text->height()) << "nothing is cut off";
    QTest::mouseClick(text->viewport(), Qt::LeftButton, {}, {2, 8});
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), GetParam().shown);
}

INSTANTIATE_TEST_SUITE_P(Texts, SessionMessageTexts,
    testing::Values(TextRow{"Markup", u"<b>a</b> &amp; <img src=file:///etc/passwd> a < b and c > d"_s,
                        u"<b>a</b> &amp; <img src=file:///etc/passwd> a < b and c > d"_s},
        TextRow{"Lines", u"one\r\ntwo\rthree\u2028four\n\nfive\n"_s, u"one\ntwo\nthree\nfour\n\nfive\n"_s},
        TextRow{"RightToLeft", u"\u05e9\u05dc\u05d5\u05dd \u202eabc\u202c"_s,
            u"\u05e9\u05dc\u05d5\u05dd \u202eabc\u202c"_s},
        TextRow{"Controls", u"a\u0000b\u0007c\u001b[31md"_s, u"a b c [31md"_s},
        TextRow{"OneLongWord", u"w"_s.repeated(1'500), u"w"_s.repeated(1'500)},
        TextRow{"Blanks", u"  a   b  "_s, u"  a   b  "_s},
        TextRow{"Emoji", u"\U0001F600\u200d\U0001F600"_s, u"\U0001F600\u200d\U0001F600"_s},
        TextRow{"LoneSurrogate", QString(QChar(0xD83D)) + u'x', QString(QChar(0xD83D)) + u'x'}),
    ByName());

TEST_F(SessionMessagesCardTest, AMessageOfAnyLengthIsShownWhole)
{
    constexpr int megabytes = 2'000'000;
    QString text;
    while (text.size() < megabytes)
        text += u"Line %1 of a text that does not end\n"_s.arg(text.size());
    show({messageOf(1, u"first"_s), messageOf(2, text)});
    EXPECT_TRUE(isAtNewest());
    EXPECT_LE(rows().size(), 30);
    EXPECT_TRUE(text.endsWith(textOf(rows().constLast())));
    scrollTo(0);
    EXPECT_EQ(textOf(rows().constFirst()), u"first"_s);
    EXPECT_TRUE(text.startsWith(textOf(rows().at(1))));
    EXPECT_FALSE(rows().at(1)->visibleRegion().isEmpty());
    scrollTo(bar()->maximum() / 2);
    for (const SessionMessageRow* row : rowsInView())
        EXPECT_TRUE(text.contains(textOf(row)));
}

TEST_F(SessionMessagesCardTest, ALongThreadOpensAtTheNewestWithAHandfulOfRows)
{
    const QList<SessionMessage> thread = longThread(1'000);
    show(thread);
    EXPECT_TRUE(isAtNewest());
    EXPECT_GT(bar()->maximum(), 0);
    EXPECT_LE(rows().size(), 30);
    EXPECT_EQ(textOf(rowsInView().constLast()), thread.constLast().message);
    EXPECT_EQ(rows().constLast()->geometry().bottom() + 1, rows().constLast()->parentWidget()->height());

    scrollTo(0);
    EXPECT_EQ(textOf(rowsInView().constFirst()), thread.constFirst().message);
    EXPECT_LE(rows().size(), 30);
}

TEST_F(SessionMessagesCardTest, EveryMessageIsReachedByScrolling)
{
    constexpr int count = 300;
    const QList<SessionMessage> thread = longThread(count);
    show(thread);
    QSet<QString> seen;
    for (bool more = true; more;) {
        for (const SessionMessageRow* row : rowsInView())
            seen += textOf(row);
        more = bar()->value() > 0;
        const int before = bar()->value();
        scrollTo(bar()->value() - bar()->pageStep() / 2);
        ASSERT_TRUE(!more || bar()->value() < before || bar()->value() == 0);
    }
    EXPECT_EQ(seen.size(), count);
}

TEST_F(SessionMessagesCardTest, RowsFollowOneAnotherWithoutGapsWhereverOneScrolls)
{
    show(longThread(400));
    for (const int percent : {0, 13, 50, 77, 100, 31}) {
        scrollTo(bar()->maximum() * percent / 100);
        const QList<SessionMessageRow*> inView = rowsInView();
        for (qsizetype i = 1; i < inView.size(); ++i)
            EXPECT_EQ(inView.at(i)->y(), inView.at(i - 1)->geometry().bottom() + 1) << percent;
        EXPECT_LE(inView.constFirst()->y(), bar()->value()) << percent;
        EXPECT_GE(inView.constLast()->geometry().bottom(), bar()->value() + thread()->height() - 1)
            << percent;
    }
}

TEST_F(SessionMessagesCardTest, AtTheNewestANewMessageComesIntoView)
{
    QList<SessionMessage> thread = longThread(100);
    show(thread);
    thread += messageOf(1'001, u"Another one"_s);
    messages->setMessages(thread);
    settle();
    EXPECT_TRUE(isAtNewest());
    EXPECT_EQ(textOf(rowsInView().constLast()), u"Another one"_s);
}

TEST_F(SessionMessagesCardTest, WhoeverReadsIsLeftInPeaceByNewMessages)
{
    QList<SessionMessage> thread = longThread(100);
    show(thread);
    scrollTo(bar()->maximum() / 2);
    const SessionMessageRow* first = rowsInView().constFirst();
    const QString text = textOf(first);
    const int place = first->mapTo(this->thread(), QPoint()).y();
    const auto expectPlace = [&] {
        EXPECT_EQ(textOf(rowsInView().constFirst()), text);
        EXPECT_EQ(rowsInView().constFirst()->mapTo(this->thread(), QPoint()).y(), place);
    };
    thread += messageOf(1'001, u"Another one"_s);
    messages->setMessages(thread);
    settle();
    expectPlace();
    thread.prepend(messageOf(1'002, u"An older one\nof two lines"_s));
    messages->setMessages(thread);
    settle();
    expectPlace();
    thread.remove(1, 10);
    messages->setMessages(thread);
    settle();
    expectPlace();
}

TEST_F(SessionMessagesCardTest, AnotherWidthKeepsThePlace)
{
    show(longThread(200), {800, 700});
    window->resize(420, 700);
    settle();
    EXPECT_TRUE(isAtNewest());
    scrollTo(bar()->maximum() / 2);
    const QString text = textOf(rowsInView().constFirst());
    for (const int width : {500, 800, 380}) {
        window->resize(width, 700);
        settle();
        EXPECT_EQ(textOf(rowsInView().constFirst()), text) << width;
    }
}

TEST_F(SessionMessagesCardTest, AReloadKeepsSelectionAndFocus)
{
    show(threadOf({u"one"_s, u"two"_s, u"three"_s}));
    SelectableText* text = rowOf(u"two"_s)->text();
    QTest::mouseDClick(text->viewport(), Qt::LeftButton, {}, {4, 8});
    ASSERT_EQ(text->textCursor().selectedText(), u"two"_s);
    messages->setMessages(threadOf({u"one"_s, u"two"_s, u"three"_s, u"four"_s}));
    settle();
    EXPECT_EQ(QApplication::focusWidget(), text);
    EXPECT_EQ(text->textCursor().selectedText(), u"two"_s);
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"two"_s);
}

TEST_F(SessionMessagesCardTest, OnlyOneTextShowsASelection)
{
    show(threadOf({u"one"_s, u"two"_s}));
    SelectableText* one = rowOf(u"one"_s)->text();
    SelectableText* two = rowOf(u"two"_s)->text();
    QTest::mouseDClick(one->viewport(), Qt::LeftButton, {}, {4, 8});
    QTest::mouseDClick(two->viewport(), Qt::LeftButton, {}, {4, 8});
    EXPECT_FALSE(one->textCursor().hasSelection());
    EXPECT_TRUE(two->textCursor().hasSelection());
}

TEST_F(SessionMessagesCardTest, CopyingWithoutASelectionTakesTheWholeMessage)
{
    show(threadOf({u"one\nmessage"_s}));
    editor()->setFocus();
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"one\nmessage"_s);
}

TEST_F(SessionMessagesCardTest, AChangedMessageIsShownAnew)
{
    show(threadOf({u"one"_s, u"two"_s}));
    messages->setMessages(threadOf({u"one"_s, u"two, corrected"_s}));
    settle();
    ASSERT_EQ(rows().size(), 2);
    EXPECT_EQ(textOf(rows().constLast()), u"two, corrected"_s);
}

TEST_F(SessionMessagesCardTest, MessagesWithTheSameIdAndTextAreAllShown)
{
    show({messageOf(1, u"same"_s), messageOf(1, u"same"_s), messageOf(1, u"other"_s)});
    ASSERT_EQ(rows().size(), 3);
    EXPECT_EQ(textOf(rows().at(1)), u"same"_s);
    EXPECT_EQ(textOf(rows().at(2)), u"other"_s);
}

TEST_F(SessionMessagesCardTest, TabStopsOnceInTheThreadAtTheNewest)
{
    const QList<SessionMessage> thread = longThread(100);
    show(thread);
    editor()->setFocus();
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(focusedText(), thread.constLast().message);
    press(Qt::Key_Tab);
    EXPECT_EQ(focused(), u"New Message"_s);
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    for (int steps = 0; steps < 5; ++steps)
        press(Qt::Key_Up);
    press(Qt::Key_Tab);
    EXPECT_EQ(focused(), u"New Message"_s);
    press(Qt::Key_Tab);
    EXPECT_EQ(focused(), u"Send Message"_s);
}

TEST_F(SessionMessagesCardTest, TheArrowKeysWalkThroughEveryMessage)
{
    constexpr int count = 60;
    const QList<SessionMessage> thread = longThread(count);
    show(thread);
    editor()->setFocus();
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    for (int number = count - 1; number >= 0; --number) {
        ASSERT_EQ(focusedText(), thread.at(number).message);
        ASSERT_FALSE(QApplication::focusWidget()->visibleRegion().isEmpty());
        press(Qt::Key_Up);
    }
    EXPECT_EQ(focusedText(), thread.constFirst().message);
    press(Qt::Key_Down);
    EXPECT_EQ(focusedText(), thread.at(1).message);
    press(Qt::Key_End);
    EXPECT_EQ(focusedText(), thread.constLast().message);
    EXPECT_TRUE(isAtNewest());
    press(Qt::Key_Home);
    EXPECT_EQ(focusedText(), thread.constFirst().message);
    EXPECT_EQ(bar()->value(), 0);
    press(Qt::Key_PageDown);
    EXPECT_NE(focusedText(), thread.constFirst().message);
    EXPECT_GT(bar()->value(), 0);
    press(Qt::Key_PageUp);
    EXPECT_EQ(focusedText(), thread.constFirst().message);
}

TEST_F(SessionMessagesCardTest, AMessageHigherThanTheViewIsReadToItsEndFirst)
{
    const QString high = u"Line\n"_s.repeated(60) + u"End"_s;
    show(threadOf({u"before"_s, high, u"after"_s}));
    editor()->setFocus();
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    press(Qt::Key_Up);
    ASSERT_EQ(focusedText(), high);
    EXPECT_EQ(QApplication::focusWidget()->mapTo(thread(), QPoint()).y() >= 0, true) << "from its beginning";
    int presses = 0;
    for (int place = -1; focusedText() == high && place != bar()->value(); ++presses) {
        place = bar()->value();
        press(Qt::Key_Down);
    }
    EXPECT_GT(presses, 3);
    EXPECT_EQ(focusedText(), u"after"_s);
}

TEST_F(SessionMessagesCardTest, AScreenReaderHearsWhoWroteInWhichRoleAndWhen)
{
    const SessionMessage message{
        1, u"notary"_s, u"Maya Whitfield"_s, {}, u"Hello <b>there"_s, u"2026-03-10 09:42:10"_s};
    show({message});
    const QString introduction = u"Maya Whitfield, Notary, 2026-03-10 09:42:10"_s;
    QAccessibleInterface* row = QAccessible::queryAccessibleInterface(rows().constFirst());
    EXPECT_EQ(row->role(), QAccessible::ListItem);
    EXPECT_EQ(row->text(QAccessible::Name), introduction);
    EXPECT_EQ(row->parent()->role(), QAccessible::List);
    EXPECT_EQ(row->parent()->text(QAccessible::Name), u"Messages"_s);
    QAccessibleInterface* text = QAccessible::queryAccessibleInterface(rows().constFirst()->text());
    EXPECT_EQ(text->text(QAccessible::Name), introduction);
    ASSERT_NE(text->textInterface(), nullptr);
    EXPECT_EQ(text->textInterface()->text(0, text->textInterface()->characterCount()), u"Hello <b>there"_s);
    EXPECT_TRUE(text->state().readOnly);
}
