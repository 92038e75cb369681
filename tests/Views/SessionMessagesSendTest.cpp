#include "SessionMessagesCardTest.h"

#include <QtTest/qtestspontaneevent.h>

TEST_F(SessionMessagesCardTest, SendsByTheButton)
{
    show();
    write(u"Hello <b>there"_s);
    EXPECT_EQ(messages->newMessage.value(), u"Hello <b>there"_s);
    click(sendButton());
    ASSERT_EQ(requestCount(), 1);
    EXPECT_EQ(body(0), (QJsonObject{{u"message"_s, u"Hello <b>there"_s}}));
    EXPECT_TRUE(sendButton()->isLoading());
    answer(0, "{}");
    EXPECT_FALSE(sendButton()->isLoading());
    EXPECT_EQ(editor()->toPlainText(), QString());
    answer(1, R"([{"id": 5, "message": "Hello <b>there"}])");
    EXPECT_EQ(textOf(rows().constLast()), u"Hello <b>there"_s);
}

class SessionMessagesKeys : public SessionMessagesCardTest, public testing::WithParamInterface<Qt::Key>
{ };

TEST_P(SessionMessagesKeys, WithControlSendOnceAndAloneBeginALine)
{
    show();
    write(u"One"_s);
    press(GetParam());
    EXPECT_EQ(requestCount(), 0);
    type(u"Two"_s);
    press(GetParam(), Qt::ControlModifier);
    press(GetParam(), Qt::ControlModifier);
    ASSERT_EQ(requestCount(), 1);
    EXPECT_EQ(body(0), (QJsonObject{{u"message"_s, u"One\nTwo"_s}}));
    EXPECT_EQ(focused(), u"New Message"_s);
    answer(0, "{}");
    answer(1, "[]");
}

INSTANTIATE_TEST_SUITE_P(Keys, SessionMessagesKeys, testing::Values(Qt::Key_Return, Qt::Key_Enter));

TEST_F(SessionMessagesCardTest, ADoubleClickSendsOnce)
{
    show();
    write(u"Hello"_s);
    QTest::mouseClick(sendButton(), Qt::LeftButton);
    QTest::mouseDClick(sendButton(), Qt::LeftButton);
    settle();
    EXPECT_EQ(requestCount(), 1);
    answer(0, "{}");
    EXPECT_EQ(requestCount(), 2) << "the thread";
    answer(1, "[]");
}

TEST_F(SessionMessagesCardTest, WhatIsTypedWhileAMessageIsOnItsWayStaysUnderTheCursor)
{
    show();
    write(u"Hello"_s);
    press(Qt::Key_Return, Qt::ControlModifier);
    type(u" and more"_s);
    answer(0, "{}");
    EXPECT_EQ(editor()->toPlainText(), u" and more"_s);
    type(u" still"_s);
    EXPECT_EQ(editor()->toPlainText(), u" and more still"_s);
    EXPECT_EQ(messages->newMessage.value(), u" and more still"_s);
    answer(1, "[]");
}

TEST_F(SessionMessagesCardTest, AFailedMessageStaysInTheField)
{
    show();
    write(u"Hello"_s);
    press(Qt::Key_Return, Qt::ControlModifier);
    fail(0);
    ASSERT_NE(alert(), nullptr);
    EXPECT_EQ(alert()->accessibleName(), u"Cannot Send Message"_s);
    EXPECT_EQ(editor()->toPlainText(), u"Hello"_s);
    EXPECT_FALSE(sendButton()->isLoading());
    press(Qt::Key_Escape);
    EXPECT_EQ(alert(), nullptr);
    EXPECT_EQ(focused(), u"New Message"_s);
    press(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(requestCount(), 2);
    answer(1, "{}");
    answer(2, "[]");
}

TEST_F(SessionMessagesCardTest, TheFieldGrowsWithItsTextUpToALimit)
{
    show();
    const int one = editor()->height();
    EXPECT_EQ(one, Height::control());
    EXPECT_EQ(editor()->verticalScrollBar()->maximum(), 0);
    write(u"One"_s);
    int last = one;
    for (int lines = 2; lines <= 8; ++lines) {
        press(Qt::Key_Return);
        EXPECT_GT(editor()->height(), last) << lines;
        EXPECT_EQ(editor()->verticalScrollBar()->maximum(), 0) << lines;
        last = editor()->height();
    }
    press(Qt::Key_Return);
    EXPECT_EQ(editor()->height(), last);
    EXPECT_GT(editor()->verticalScrollBar()->maximum(), 0);
    messages->newMessage = QString();
    settle();
    EXPECT_EQ(editor()->height(), one);
}

TEST_F(SessionMessagesCardTest, TheNewestStaysInViewWhileTheFieldGrows)
{
    show(longThread(50), {600, 500});
    write(u"One"_s);
    for (int lines = 0; lines < 6; ++lines)
        press(Qt::Key_Return);
    EXPECT_TRUE(isAtNewest());
}

TEST_F(SessionMessagesCardTest, SendingShowsTheNewest)
{
    QList<SessionMessage> thread = longThread(100);
    show(thread);
    write(u"Hello"_s);
    scrollTo(0);
    press(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_TRUE(isAtNewest());
    answer(0, "{}");
    answer(1, R"([{"id": 1, "message": "Hello"}])");
    EXPECT_TRUE(isAtNewest());
}

TEST_F(SessionMessagesCardTest, TheWheelScrollsTheThreadAndAtItsEndThePage)
{
    show(longThread(100), {600, 400});
    const QPoint over = thread()->mapTo(window.get(), thread()->rect().center());
    const auto turn = [&](int steps) {
        QWidget* under = window->childAt(over);
        QWheelEvent wheel(QPointF(under->mapFrom(window.get(), over)), QPointF(window->mapToGlobal(over)), {},
            {0, -120 * steps}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QSpontaneKeyEvent::setSpontaneous(&wheel);
        qApp->notify(under, &wheel);
        settle();
    };
    const int newest = bar()->value();
    turn(-2);
    EXPECT_LT(bar()->value(), newest);
    EXPECT_EQ(window->verticalScrollBar()->value(), 0);
    scrollTo(bar()->maximum());
    turn(1);
    EXPECT_TRUE(isAtNewest());
    EXPECT_GT(window->verticalScrollBar()->value(), 0);
}

TEST_F(SessionMessagesCardTest, TheDraftOutlivesTheCard)
{
    show();
    write(u"Hello"_s);
    close();
    show();
    EXPECT_EQ(editor()->toPlainText(), u"Hello"_s);
}

TEST_F(SessionMessagesCardTest, ACardThatGoesInTheMiddleOfASendDisturbsNothing)
{
    show();
    write(u"Hello"_s);
    press(Qt::Key_Return, Qt::ControlModifier);
    close();
    answer(0, "{}");
    answer(1, "[]");
    EXPECT_EQ(messages->newMessage.value(), QString());
}

TEST_F(SessionMessagesCardTest, TheCardMayBeTheLastToHoldItsModel)
{
    show();
    const std::weak_ptr<SessionMessagesModel> gone = messages;
    messages.reset();
    close();
    EXPECT_TRUE(gone.expired());
    messages = std::make_shared<SessionMessagesModel>(context, 7);
}
