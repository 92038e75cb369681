#include "WebSessionTest.h"

#include <deque>
#include <random>

namespace {

/// The faults that a server may commit once it has read a write; what they have in common is that the client
/// cannot know whether the write took effect.
void commitFault(RawConnection& connection, unsigned kind)
{
    switch (kind) {
    case 0:
        return connection.close();
    case 1:
        return connection.reset();
    case 2:
        return connection.send("HTTP/1.1 20");
    case 3:
        connection.send("HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\n{");
        return connection.reset();
    case 4:
        return connection.send("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\nzz\r\n");
    case 5:
        return connection.send("HTTP/1.1 103 Early Hints\r\n\r\n");
    case 6:
        return connection.send(rawAnswer(307, "{}", "Location: /\r\n"));
    case 7:
        return connection.send(rawAnswer(408, "{}", "Connection: close\r\n"));
    case 8:
        return connection.send(rawAnswer(417));
    case 9:
        return connection.send(rawAnswer(503, "{}", "Retry-After: 0\r\n"));
    case 10:
        return connection.send(rawAnswer(401, "{}", "WWW-Authenticate: Basic realm=\"x\"\r\n"));
    default:
        return connection.send(rawAnswer(200));
    }
}

int countFromEnvironment(const char* name, int usual)
{
    bool isNumber = false;
    const int count = qEnvironmentVariableIntValue(name, &isNumber);
    return isNumber ? count : usual;
}

} // namespace

class FaultedWrites : public testing::TestWithParam<Transport>
{ };

/// However a server fails, no write reaches it twice. QUORVEL_FAULTED_WRITES sets the number of writes.
TEST_P(FaultedWrites, TakeEffectOnce)
{
    constexpr unsigned faults = 12;
    constexpr int atOnce = 6;
    const int count = countFromEnvironment("QUORVEL_FAULTED_WRITES", 300);
    const auto server = serve(GetParam(), [](RawConnection& connection) {
        RawRequest request = connection.readRequest();
        for (; request.method() == "GET"; request = connection.readRequest())
            connection.send(rawAnswer(200));
        commitFault(connection, request.header("X-Fault").toUInt());
    });
    std::mt19937 random(20'240'607);
    CurlWebSession session(trusting());
    for (int sent = 0; sent < count;) {
        std::deque<Awaited<Response>> answers;
        // Reads leave open connections behind, on which a write could be lost and sent anew.
        answers.emplace_back(session.send(get(server->url())));
        for (int i = 0; i < atOnce && sent < count; ++i, ++sent) {
            const unsigned fault = unsigned(random()) % faults;
            Request request = write(server->url(), random() % 2 == 0 ? "POST" : "DELETE");
            request.headers += {"X-Number", QByteArray::number(sent)};
            request.headers += {"X-Fault", QByteArray::number(fault)};
            answers.emplace_back(session.send(request));
        }
        for (const Awaited<Response>& answer : answers)
            outcomeOf(answer);
    }
    QHash<QByteArray, int> effects;
    for (const RawRequest& request : server->seen()) {
        if (request.method() != "GET")
            ++effects[request.header("X-Number")];
    }
    EXPECT_EQ(effects.size(), count);
    for (auto effect = effects.cbegin(); effect != effects.cend(); ++effect)
        EXPECT_EQ(effect.value(), 1) << "write " << effect.key().toStdString();
}

INSTANTIATE_TEST_SUITE_P(Over, FaultedWrites, testing::Values(Transport::Plain, Transport::Tls),
    testing::PrintToStringParamName());
