#include "CurlWebSession.h"
#include "Launch.h"
#include "ScreenTest.h"
#include "Sessions/SessionsModel.h"
#include "support/Await.h"
#include "support/RawServer.h"

#include <future>

using namespace Qt::StringLiterals;

namespace {

/// Screens before a real server, which takes its time.
class LeavingOverTheWire : public ScreenTest
{
protected:
    LeavingOverTheWire() { signIn(account(u"Jordan Ellis"_s)); }
    ~LeavingOverTheWire() override
    {
        wire.cancelAll();
        settle();
    }

    void serve(const RawServer::Script& script)
    {
        server = std::make_unique<RawServer>(script);
        config.bridgeBaseURL = server->url(u"/mobile-bridge/v1"_s);
    }

    CurlWebSession wire;
    Backend wired{wire, notifications, epoch, config, tokens};
    ScreenContext overTheWire{auth, router, systemOpen, wired, leaving, launchAtLogin, notice};
    std::unique_ptr<RawServer> server;
};

TEST_F(LeavingOverTheWire, ClosesTheConnectionOfALoadThatComesByteByByte)
{
    serve([](RawConnection& connection) {
        connection.readRequest();
        connection.send("HTTP/1.1 200 OK\r\nContent-Length: 1000000\r\n\r\n[");
        connection.trickle(" ", std::chrono::milliseconds(1));
    });
    auto model = std::make_shared<SessionsModel>(overTheWire);
    model->beginView();
    launch(model->load());
    runUntil([this] { return server->requests() == 1; });
    EXPECT_EQ(server->ended(), 0);
    model->endView();
    runUntil([this, &model] { return server->ended() == 1 && !model->isLoading.value(); });
    EXPECT_EQ(alertOf(*model), QList<QString>());
    EXPECT_TRUE(auth.isSignedIn());
    const std::weak_ptr<SessionsModel> weak = model;
    model.reset();
    EXPECT_TRUE(weak.expired());
}

TEST_F(LeavingOverTheWire, LetsAWriteArriveAndBeAnswered)
{
    const auto left = std::make_shared<std::promise<void>>();
    serve([left](RawConnection& connection) {
        connection.readRequest();
        left->get_future().wait();
        connection.send(rawAnswer(200));
    });
    const auto messages = std::make_shared<SessionMessagesModel>(overTheWire, 7);
    messages->newMessage = u"Hello"_s;
    launch(messages->sendMessage());
    runUntil([this] { return server->requests() == 1; });
    messages->close();
    left->set_value();
    runUntil([&messages] { return !messages->isSending.value(); });
    EXPECT_EQ(messages->newMessage.value(), QString());
    EXPECT_EQ(alertOf(*messages), QList<QString>());
    EXPECT_EQ(server->requests(), 1);
}

} // namespace
