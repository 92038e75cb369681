#include "Sessions/SessionMessagesModel.h"

#include "FailureKinds.h"
#include "Launch.h"
#include "ScreenTest.h"

#include <QSignalSpy>

using namespace Qt::StringLiterals;

namespace {

class SessionMessagesModelTest : public ScreenTest
{
protected:
    SessionMessagesModelTest() { signIn(account(u"Priya Raman"_s)); }

    void load()
    {
        launch(model->loadMessages());
        settle();
    }
    void write(const QString& text) { model->newMessage = text; }
    void send()
    {
        launch(model->sendMessage());
        settle();
    }
    QList<QString> texts() const
    {
        QList<QString> texts;
        for (const SessionMessage& message : model->messages())
            texts += message.message;
        return texts;
    }
    static QByteArray thread(const QList<QByteArray>& messages)
    {
        QByteArray json;
        for (qsizetype i = 0; i < messages.size(); ++i)
            json += (i > 0 ? "," : "") + QByteArray(R"({"id":)") + QByteArray::number(i + 1)
                + R"(,"message":")" + messages.at(i) + R"("})";
        return R"({"messages":[)" + json + "]}";
    }

    std::shared_ptr<SessionMessagesModel> model = std::make_shared<SessionMessagesModel>(context, 7);
};

const QList<QString> none;

TEST_F(SessionMessagesModelTest, StartsEmpty)
{
    EXPECT_TRUE(model->messages().isEmpty());
    EXPECT_EQ(model->newMessage.value(), QString());
    EXPECT_FALSE(model->isSending.value());
    EXPECT_FALSE(model->hasUnsentWork());
    EXPECT_EQ(alertOf(*model), none);
    EXPECT_EQ(requestCount(), 0);
}

TEST_F(SessionMessagesModelTest, LoadsTheThreadInItsOrder)
{
    const QSignalSpy changes(model.get(), &SessionMessagesModel::messagesChanged);
    load();
    ASSERT_EQ(requestCount(), 1);
    EXPECT_EQ(line(0), u"GET /remote-notary/sessions/7/messages"_s);
    EXPECT_EQ(header(0, "Authorization"), "Bearer priyaraman-token");
    EXPECT_EQ(text(0), QByteArray());
    answer(0, R"({"messages": [
        {"id": 2, "sender_type": "notary", "sender_name": "Maya", "sender_email": "m@example.com",
         "message": " Two\n<b>lines</b> ", "created_at": "2026-03-10 09:42:10"},
        {"id": 1}]})");
    const SessionMessage second{
        2, u"notary"_s, u"Maya"_s, u"m@example.com"_s, u" Two\n<b>lines</b> "_s, u"2026-03-10 09:42:10"_s};
    const SessionMessage first{1, u"user"_s, u"Quorvel"_s, {}, {}, {}};
    EXPECT_EQ(model->messages(), (QList<SessionMessage>{second, first}));
    EXPECT_EQ(changes.size(), 1);
}

TEST_F(SessionMessagesModelTest, TheSameThreadAgainIsNoChange)
{
    load();
    answer(0, thread({"a"}));
    const QSignalSpy changes(model.get(), &SessionMessagesModel::messagesChanged);
    load();
    answer(1, thread({"a"}));
    model->setMessages(model->messages());
    EXPECT_EQ(changes.size(), 0);
    load();
    answer(2, thread({"b"}));
    EXPECT_EQ(changes.size(), 1);
    EXPECT_EQ(texts(), QList<QString>{u"b"_s}) << "the same message with another text";
}

TEST_F(SessionMessagesModelTest, TheNewestLoadWins)
{
    load();
    load();
    answer(1, thread({"new"}));
    answer(0, thread({"old"}));
    EXPECT_EQ(texts(), QList<QString>{u"new"_s});
}

TEST_F(SessionMessagesModelTest, AnEarlierLoadsFailureIsNobodysBusiness)
{
    load();
    load();
    fail(0);
    EXPECT_EQ(alertOf(*model), none);
    answer(1, thread({"new"}));
    EXPECT_EQ(texts(), QList<QString>{u"new"_s});
}

TEST_F(SessionMessagesModelTest, SendsWhatIsWrittenTrimmedAndLoadsTheThreadAgain)
{
    write(u" \n\t Two \"quoted\"\nlines\u00a0 \r\n"_s);
    send();
    ASSERT_EQ(requestCount(), 1);
    EXPECT_EQ(line(0), u"POST /remote-notary/sessions/7/messages"_s);
    EXPECT_EQ(header(0, "Authorization"), "Bearer priyaraman-token");
    EXPECT_EQ(body(0), (QJsonObject{{u"message"_s, u"Two \"quoted\"\nlines"_s}}));
    EXPECT_TRUE(model->isSending.value());
    EXPECT_FALSE(model->newMessage.value().isEmpty()) << "until it has arrived";
    answer(0, "{}");
    EXPECT_FALSE(model->isSending.value());
    EXPECT_EQ(model->newMessage.value(), QString());
    ASSERT_EQ(requestCount(), 2);
    EXPECT_EQ(line(1), u"GET /remote-notary/sessions/7/messages"_s);
    answer(1, thread({"Two"}));
    EXPECT_EQ(texts(), QList<QString>{u"Two"_s});
    EXPECT_EQ(alertOf(*model), none);
}

class BlankMessage : public SessionMessagesModelTest, public testing::WithParamInterface<QString>
{ };

TEST_P(BlankMessage, IsNotSentAndStays)
{
    write(GetParam());
    EXPECT_FALSE(model->hasUnsentWork());
    send();
    EXPECT_EQ(requestCount(), 0);
    EXPECT_FALSE(model->isSending.value());
    EXPECT_EQ(model->newMessage.value(), GetParam());
    EXPECT_EQ(alertOf(*model), none);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, BlankMessage, testing::Values(u""_s, u" "_s, u"   "_s, u"\n\n"_s, u" \t\r\n\u00a0\u2003"_s));

TEST_F(SessionMessagesModelTest, TellsWhetherSomethingIsUnsent)
{
    write(u" a"_s);
    EXPECT_TRUE(model->hasUnsentWork());
    send();
    EXPECT_TRUE(model->hasUnsentWork());
    answer(0, "{}");
    EXPECT_FALSE(model->hasUnsentWork());
    answer(1, "[]");
}

TEST_F(SessionMessagesModelTest, ADoublePressSendsOnce)
{
    write(u"Hello"_s);
    launch(model->sendMessage());
    launch(model->sendMessage());
    settle();
    send();
    EXPECT_EQ(requestCount(), 1);
    answer(0, "{}");
    EXPECT_EQ(requestCount(), 2) << "the thread";
    answer(1, "[]");
}

TEST_F(SessionMessagesModelTest, TheNextMessageNeedNotWaitForTheThread)
{
    write(u"One"_s);
    send();
    answer(0, "{}");
    ASSERT_EQ(requestCount(), 2);
    write(u"Two"_s);
    send();
    ASSERT_EQ(requestCount(), 3);
    EXPECT_EQ(body(2), (QJsonObject{{u"message"_s, u"Two"_s}}));
    answer(2, "{}");
    ASSERT_EQ(requestCount(), 4);
    answer(3, thread({"One", "Two"}));
    answer(1, thread({"One"}));
    EXPECT_EQ(texts(), (QList<QString>{u"One"_s, u"Two"_s})) << "the newest load wins";
}

struct Meanwhile
{
    std::string name;
    QString sent;
    QString now; ///< in the field when the message has arrived
    QString left;
};

void PrintTo(const Meanwhile& row, std::ostream* out)
{
    *out << row.name;
}

class WrittenMeanwhile : public SessionMessagesModelTest, public testing::WithParamInterface<Meanwhile>
{ };

TEST_P(WrittenMeanwhile, OnlyWhatWasSentLeavesTheField)
{
    write(GetParam().sent);
    send();
    write(GetParam().now);
    answer(0, "{}");
    EXPECT_EQ(model->newMessage.value(), GetParam().left);
    answer(1, "[]");
}

INSTANTIATE_TEST_SUITE_P(Drafts, WrittenMeanwhile,
    testing::Values(Meanwhile{"Nothing", u"Hello"_s, u"Hello"_s, u""_s},
        Meanwhile{"Blanks", u" Hello \n"_s, u" Hello \n"_s, u""_s},
        Meanwhile{"Behind", u"Hello"_s, u"Hello there"_s, u" there"_s},
        Meanwhile{"OnTheNextLine", u"Hello"_s, u"Hello\nAnd one more thing"_s, u"\nAnd one more thing"_s},
        Meanwhile{"Before", u"Hello"_s, u"Oh. Hello"_s, u"Oh. "_s},
        Meanwhile{"Rewritten", u"Hello"_s, u"Help"_s, u"Help"_s},
        Meanwhile{"InTheMiddle", u"Hello"_s, u"Hel-lo"_s, u"Hel-lo"_s},
        Meanwhile{"Emptied", u"Hello"_s, u""_s, u""_s},
        Meanwhile{"TheSameTwice", u"Hello"_s, u"HelloHello"_s, u"Hello"_s},
        Meanwhile{"AnotherText", u"Hello"_s, u"Bye"_s, u"Bye"_s}),
    ByName());

class SessionMessagesFailure : public SessionMessagesModelTest,
                               public testing::WithParamInterface<FailureKind>
{
protected:
    void happenTo(qsizetype number)
    {
        GetParam().happen(*webSession, number);
        settle();
    }
    /// The alert, or the sign-out without one.
    void expectFailure(const QString& title)
    {
        EXPECT_EQ(auth.isSignedIn(), !GetParam().message.isEmpty());
        const QList<QString> alert{title, GetParam().message};
        EXPECT_EQ(alertOf(*model), GetParam().message.isEmpty() ? none : alert);
    }
};

TEST_P(SessionMessagesFailure, OfALoadKeepsTheThread)
{
    load();
    answer(0, thread({"a", "b"}));
    load();
    happenTo(1);
    expectFailure(u"Cannot Load Messages"_s);
    EXPECT_EQ(texts(), (QList<QString>{u"a"_s, u"b"_s}));
}

TEST_P(SessionMessagesFailure, OfASendKeepsTheDraft)
{
    write(u" Hello "_s);
    send();
    write(u" Hello there"_s);
    happenTo(0);
    expectFailure(u"Cannot Send Message"_s);
    EXPECT_EQ(model->newMessage.value(), u" Hello there"_s);
    EXPECT_FALSE(model->isSending.value());
    EXPECT_EQ(requestCount(), 1) << "neither sent again nor loaded";
}

TEST_P(SessionMessagesFailure, OfTheLoadAfterASendLeavesNothingToSendAgain)
{
    write(u"Hello"_s);
    send();
    answer(0, "{}");
    happenTo(1);
    expectFailure(u"Cannot Load Messages"_s);
    EXPECT_EQ(model->newMessage.value(), QString());
    EXPECT_FALSE(model->isSending.value());
}

INSTANTIATE_TEST_SUITE_P(Kinds, SessionMessagesFailure, testing::ValuesIn(failureKinds()), ByName());

TEST_F(SessionMessagesModelTest, AnAnswerToASendThatIsNoObjectIsAFailure)
{
    write(u"Hello"_s);
    send();
    answer(0, "[]");
    EXPECT_EQ(alertOf(*model),
        (QList<QString>{
            u"Cannot Send Message"_s, u"We could not complete that request. Please try again."_s}));
    EXPECT_EQ(model->newMessage.value(), u"Hello"_s);
}

TEST_F(SessionMessagesModelTest, AFailedMessageCanBeSentAgain)
{
    write(u"Hello"_s);
    send();
    fail(0);
    send();
    ASSERT_EQ(requestCount(), 2);
    EXPECT_EQ(body(1), (QJsonObject{{u"message"_s, u"Hello"_s}}));
    answer(1, "{}");
    EXPECT_EQ(model->newMessage.value(), QString());
    answer(2, "[]");
}

TEST_F(SessionMessagesModelTest, WithoutAUserItSignsOutAndStops)
{
    load();
    answer(0, thread({"a"}));
    auth.signOut();
    const quint64 before = epoch.current();
    write(u"Hello"_s);
    load();
    send();
    EXPECT_EQ(requestCount(), 1);
    EXPECT_EQ(alertOf(*model), none);
    EXPECT_FALSE(model->isSending.value());
    EXPECT_EQ(model->newMessage.value(), u"Hello"_s);
    EXPECT_GE(epoch.current(), before);
}

/// Somebody leaves while an operation is under way, and maybe somebody else comes.
enum class Leaving
{
    alone,
    replaced
};

class SessionMessagesLeaving : public SessionMessagesModelTest, public testing::WithParamInterface<Leaving>
{
protected:
    void leave()
    {
        if (GetParam() == Leaving::alone)
            auth.signOut();
        else
            replaceUser(account(u"Second"_s));
    }
    bool isAsBefore() const { return auth.isSignedIn() == (GetParam() == Leaving::replaced); }
};

TEST_P(SessionMessagesLeaving, ALateThreadShowsNothing)
{
    load();
    leave();
    answer(0, thread({"a"}));
    EXPECT_EQ(texts(), QList<QString>());
    EXPECT_TRUE(isAsBefore());
}

TEST_P(SessionMessagesLeaving, ALateFailureSaysNothingAndSignsNobodyOut)
{
    load();
    write(u"Hello"_s);
    send();
    leave();
    answer(0, "{}", 401);
    answer(1, "{}", 401);
    EXPECT_EQ(alertOf(*model), none);
    EXPECT_TRUE(isAsBefore());
    EXPECT_FALSE(model->isSending.value());
}

TEST_P(SessionMessagesLeaving, ALateArrivalIsFollowedByNothing)
{
    write(u"Hello"_s);
    send();
    leave();
    write(u"Hello from me"_s);
    answer(0, "{}");
    EXPECT_EQ(requestCount(), 1) << "no thread is loaded in another name";
    EXPECT_EQ(model->newMessage.value(), u"Hello from me"_s);
    EXPECT_FALSE(model->isSending.value());
}

INSTANTIATE_TEST_SUITE_P(People, SessionMessagesLeaving, testing::Values(Leaving::alone, Leaving::replaced),
    [](const auto& row) { return row.param == Leaving::alone ? "SignedOut" : "Replaced"; });

TEST_F(SessionMessagesModelTest, ASentMessageArrivesAlthoughTheScreenHasGone)
{
    write(u"Hello"_s);
    send();
    const std::weak_ptr<SessionMessagesModel> gone = model;
    model.reset();
    answer(0, "{}");
    EXPECT_FALSE(gone.expired());
    answer(1, "[]");
    EXPECT_TRUE(gone.expired());
}

TEST_F(SessionMessagesModelTest, OutlivesTheEndOfTheWebSession)
{
    write(u"Hello"_s);
    send();
    load();
    EXPECT_EQ(request(0).method, "POST");
    EXPECT_EQ(request(1).method, "GET");
    webSession.reset();
    EXPECT_FALSE(model->isSending.value());
    EXPECT_EQ(model->newMessage.value(), u"Hello"_s);
}

struct RoleRow
{
    std::string name;
    QString senderType;
    QString icon;
    QString title;
};

void PrintTo(const RoleRow& row, std::ostream* out)
{
    *out << row.name;
}

class SenderRole : public testing::TestWithParam<RoleRow>
{ };

TEST_P(SenderRole, HasASymbolAndATitle)
{
    SessionMessage message;
    message.senderType = GetParam().senderType;
    EXPECT_EQ(SessionMessagesModel::icon(message), GetParam().icon);
    EXPECT_EQ(SessionMessagesModel::roleTitle(message), GetParam().title);
}

INSTANTIATE_TEST_SUITE_P(Roles, SenderRole,
    testing::Values(RoleRow{"Client", u"client"_s, u"person.fill"_s, u"Client"_s},
        RoleRow{"Business", u"business"_s, u"building.2.fill"_s, u"Business"_s},
        RoleRow{"Notary", u"Notary"_s, u"checkmark.seal.fill"_s, u"Notary"_s},
        RoleRow{"Admin", u" ADMIN "_s, u"gearshape.fill"_s, u"Admin"_s},
        RoleRow{"User", u"user"_s, u"person.fill"_s, u"User"_s},
        RoleRow{"Unknown", u"<b>"_s, u"person.fill"_s, u"<b>"_s},
        RoleRow{"Empty", u""_s, u"person.fill"_s, u""_s}),
    ByName());

} // namespace
