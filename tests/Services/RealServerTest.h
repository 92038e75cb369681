#pragma once

#include "AuthManagerTest.h"
#include "CurlWebSession.h"
#include "support/RawServer.h"

#include <optional>

/// The services over a real connection to a server that misbehaves as its script says.
class RealServerTest : public testing::Test
{
protected:
    RealServerTest();
    ~RealServerTest() override;

    /// Makes the server that stands for the bridge and the token service.
    void serve(bool overTls, const RawServer::Script& script);
    /// A server over TLS with this certificate; the client trusts the authority of the valid one.
    void serve(TestCertificates::Quality certificate, const RawServer::Script& script);
    /// Points the services at an address.
    void use(const QUrl& website);

    /// The sentence with which a call fails once the server has had its say.
    template <typename T>
    static QString failureOnceDone(const Awaited<T>& call)
    {
        runUntil([&call] { return call.isDone(); });
        return failureOf(call);
    }

    QTemporaryDir files;
    AppConfig config;
    NotificationCenter notifications;
    SignInEpoch epoch;
    TokenGate tokens{epoch};
    SetClock clock;
    InMemoryDefaults defaults;
    std::unique_ptr<CurlWebSession> session;
    std::unique_ptr<RawServer> server;
    std::unique_ptr<Backend> backend;
    int expiries = 0;

    const QString token = QStringLiteral("id-token");
};

/// Over which connection a table's rows are tried.
struct Connection
{
    template <typename Row>
    std::string operator()(const testing::TestParamInfo<std::tuple<Row, bool>>& row) const
    {
        return std::get<0>(row.param).name + (std::get<1>(row.param) ? "OverTls" : "InTheClear");
    }
};
