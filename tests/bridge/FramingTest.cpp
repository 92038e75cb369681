#include "support/RawConnection.h"
#include "support/RunningBridge.h"

static const std::string signIn
    = "POST /mobile-bridge/v1/auth/password-login HTTP/1.1\r\nHost: localhost\r\n";
static const std::string inChunks = signIn + "Transfer-Encoding: chunked\r\n\r\n";

using Framing = BridgeTest;

TEST_F(Framing, NoBodyBecomesTheNextRequest)
{
    const std::string smuggled = "GET /mobile-bridge/v1/profile HTTP/1.1\r\n\r\n";
    const std::string size = std::to_string(smuggled.size());
    const std::string get = "GET / HTTP/1.1\r\n";
    const struct
    {
        std::string head;
        int status;
    } rows[] = {
        {get + "Content-Length: " + size + "\r\n", 200},
        {get + "Transfer-Encoding: chunked\r\n", 200},
        {"PUT /a HTTP/1.1\r\nContent-Length: " + size + "\r\n", 404},
        {get + "Content-Length: 0\r\nContent-Length: " + size + "\r\n", 400},
        {get + "Content-Length: 0\r\nTransfer-Encoding: chunked\r\n", 400},
        {get + "Content-Length: -1\r\n", 400},
        {get + "Content-Length: +0\r\n", 400},
        {get + "Content-Length: 0x1a\r\n", 400},
        {get + "Content-Length : " + size + "\r\n", 400},
        {get + "Content-Length\t: " + size + "\r\n", 400},
        {get + "Transfer-Encoding : chunked\r\n", 400},
        {get + "Transfer-Encoding: x-chunked\r\n", 400},
        {get + "X-Folded: a\r\n Content-Length: " + size + "\r\n", 400},
        {"BREW / HTTP/1.1\r\nContent-Length: " + size + "\r\n", 400},
        {"PRI / HTTP/1.1\r\nContent-Length: " + size + "\r\n", 400},
        {"GET /a?b?c HTTP/1.1\r\nContent-Length: " + size + "\r\n", 400},
        {"GET /a?b?c HTTP/1.1\r\n", 400},
    };
    for (const auto& row : rows) {
        RawConnection connection(bridge.port());
        ASSERT_TRUE(connection.send(row.head + "\r\n" + smuggled));
        const std::string answers = connection.readAll();
        EXPECT_EQ(answers.rfind("HTTP/1.1 " + std::to_string(row.status), 0), 0u) << row.head << answers;
        EXPECT_EQ(answers.find("HTTP/1.1", 1), std::string::npos) << row.head << answers;
    }
}

TEST_F(Framing, WhatCannotBeReadIsRefusedLikeEverythingElse)
{
    RawConnection connection(bridge.port());
    connection.send("GET / HTTP/1.1\r\nName : value\r\n\r\n");
    const std::string answer = connection.readAll();
    EXPECT_EQ(answer.rfind("HTTP/1.1 400 ", 0), 0u);
    for (const char* part : {"Connection: close\r\n", "Content-Type: application/json\r\n",
             "Cache-Control: no-store\r\n", "\r\n\r\n{\"message\":\"The request could not be read.\"}"})
        EXPECT_NE(answer.find(part), std::string::npos) << part << answer;
}

TEST_F(Framing, RequestsFollowEachOtherWhenTheirBodiesWereRead)
{
    const std::string body = R"({"email":"a@b.cd"})";
    RawConnection connection(bridge.port());
    connection.send(signIn + "Content-Length: " + std::to_string(body.size()) + "\r\n\r\n" + body + inChunks
        + "5;x\r\n{\"ema\r\nd\r\nil\":\"a@b.cd\"}\r\n0\r\nX-Sum: 1\r\n\r\n"
        + "GET / HTTP/1.1\r\nConnection: close\r\n\r\n");
    const std::string answers = connection.readAll();
    std::vector<std::string> statuses;
    for (std::size_t at = 0; (at = answers.find("HTTP/1.1 ", at)) != std::string::npos; at += 9)
        statuses.push_back(answers.substr(at + 9, 3));
    EXPECT_EQ(statuses, (std::vector<std::string>{"400", "400", "200"})) << answers;
    EXPECT_EQ(answers.find("could not be read"), std::string::npos);
}

TEST_F(Framing, ABodyThatEndsEarlyIsNotTakenForWhole)
{
    const std::string body = R"({"email":"priya.raman@example.com","password":"quorvel-demo"})";
    const std::string bodies[] = {"Content-Length: " + std::to_string(body.size() + 1) + "\r\n\r\n" + body,
        "Transfer-Encoding: chunked\r\n\r\n3d\r\n" + body,
        "Transfer-Encoding: chunked\r\n\r\n3d\r\n" + body + "\r\n0\r\n"};
    for (const std::string& sent : bodies) {
        RawConnection connection(bridge.port());
        connection.send(signIn + sent);
        connection.finishSending();
        const std::string answer = connection.readAll();
        EXPECT_EQ(answer.rfind("HTTP/1.1 400 ", 0), 0u) << sent << answer;
        EXPECT_NE(answer.find("did not arrive whole"), std::string::npos) << sent << answer;
    }
}

TEST_F(Framing, AClientThatWaitsIsToldToGoOnOnlyWhenItsBodyIsWanted)
{
    const std::string body = R"({"email":"a@b.cd"})";
    const std::string length = "Expect: 100-continue\r\nConnection: close\r\nContent-Length: "
        + std::to_string(body.size()) + "\r\n\r\n";
    RawConnection wanted(bridge.port());
    wanted.send(signIn + length);
    EXPECT_EQ(wanted.read(25), "HTTP/1.1 100 Continue\r\n\r\n");
    wanted.send(body);
    EXPECT_EQ(wanted.readAll().rfind("HTTP/1.1 400 ", 0), 0u);

    RawConnection unwanted(bridge.port());
    unwanted.send("POST /mobile-bridge/v1/profile HTTP/1.1\r\n" + length);
    EXPECT_EQ(unwanted.readAll().rfind("HTTP/1.1 401 ", 0), 0u);
}

TEST_F(Framing, ListsAreNeverCompressedWithBrotli)
{
    httplib::Headers headers{{"Authorization", "Bearer " + tokenOf(client)}, {"Accept-Encoding", "br"}};
    const auto connection = api.client();
    connection->set_decompress(false);
    const auto encoding = [&] {
        return connection->Get("/mobile-bridge/v1/remote-notary/sessions", headers)
            ->get_header_value("Content-Encoding");
    };
    EXPECT_EQ(encoding(), "");
    headers.erase("Accept-Encoding");
    headers.emplace("Accept-Encoding", "gzip, deflate, br");
    EXPECT_EQ(encoding(), "gzip");
}

TEST(Head, ReachesTheOperationAsItWasSent)
{
    RunningBridge::Wishes wishes;
    wishes.operations = [](bridge::Router& router) {
        router.add("PUT", "/echo", bridge::Access::Everybody, [](bridge::Call& call) {
            call.answer({{"sum", call.header("X-Sum")}, {"type", call.contentType()}});
        });
    };
    const RunningBridge bridge(wishes);
    RawConnection connection(bridge.port());
    connection.send("PUT /echo HTTP/1.1\r\nConnection: close\r\nX-Sum:  100%41%  \r\nContent-Type: a/b; "
                    "c=\"%0d\"\r\n\r\n");
    const std::string answer = connection.readAll();
    EXPECT_EQ(Json::parse(answer.substr(answer.find("\r\n\r\n"))),
        Json({{"sum", "100%41%"}, {"type", "a/b; c=\"%0d\""}}));
}
