#include "WebSessionTest.h"

using Code = TransportError::Code;

namespace {

/// What a server does once it has read a request, and how the client must see it.
struct Row
{
    std::string name;
    RawServer::Script behaviour;
    Outcome want;
};

void PrintTo(const Row& row, std::ostream* out)
{
    *out << row.name;
}

RawServer::Script sends(const QByteArray& bytes)
{
    return [bytes](RawConnection& connection) { connection.send(bytes); };
}

RawServer::Script sendsAndResets(const QByteArray& bytes)
{
    return [bytes](RawConnection& connection) {
        connection.send(bytes);
        connection.reset();
    };
}

/// Sends the beginning, and then the piece again and again until the client has had enough.
RawServer::Script floods(const QByteArray& beginning, const QByteArray& piece)
{
    return [beginning, piece](RawConnection& connection) {
        connection.send(beginning);
        for (;;)
            connection.send(piece);
    };
}

Row answersWith(int status, const QByteArray& headerLines = {})
{
    return {"Status" + std::to_string(status), sends(rawAnswer(status, "{}", headerLines)), answered(status)};
}

QByteArray chunked(const QByteArray& chunks)
{
    return "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n" + chunks;
}

const Outcome lost = failed(Code::NetworkConnectionLost);
const Outcome broken = failed(Code::BadServerResponse);

const std::vector<Row> rows{
    {"NoReply", [](RawConnection& connection) { connection.close(); }, lost},
    {"NoReplyButReset", [](RawConnection& connection) { connection.reset(); }, lost},
    {"HalfStatusLine", sends("HTTP/1.1 20"), lost},
    {"HalfStatusLineAndReset", sendsAndResets("HTTP/1.1 20"), lost},
    {"StatusLineOnly", sends("HTTP/1.1 200 OK\r\n"), lost},
    {"HalfHeaderLine", sends("HTTP/1.1 200 OK\r\nContent-Le"), lost},
    {"HeadWithoutBlankLine", sends("HTTP/1.1 200 OK\r\nContent-Length: 2\r\n"), lost},
    {"BodyCutByClose", sends("HTTP/1.1 200 OK\r\nContent-Length: 9\r\n\r\n{\"a\""), lost},
    {"BodyCutByReset", sendsAndResets("HTTP/1.1 200 OK\r\nContent-Length: 9\r\n\r\n{\"a\""), lost},

    answersWith(200),
    answersWith(201),
    answersWith(299),
    {"Status204", sends("HTTP/1.1 204 No Content\r\n\r\n"), answered(204, {})},
    {"EmptyBody", sends(rawAnswer(200, {})), answered(200, {})},
    answersWith(300),
    {"Status304", sends("HTTP/1.1 304 Not Modified\r\n\r\n"), answered(304, {})},
    answersWith(305, "Location: http://elsewhere.test/\r\n"),
    answersWith(400),
    answersWith(401, "WWW-Authenticate: Basic realm=\"x\"\r\nWWW-Authenticate: Negotiate\r\n"),
    answersWith(403),
    answersWith(404),
    answersWith(407, "Proxy-Authenticate: Basic realm=\"x\"\r\n"),
    answersWith(408),
    answersWith(413),
    answersWith(417),
    answersWith(421),
    answersWith(425),
    answersWith(429, "Retry-After: 0\r\n"),
    answersWith(500),
    answersWith(503, "Retry-After: 0\r\n"),
    answersWith(599),
    {"Status600", sends(rawAnswer(600)), unusable("{}")},
    {"Status999", sends(rawAnswer(999)), unusable("{}")},
    {"Status000", sends("HTTP/1.1 000 None\r\nContent-Length: 2\r\n\r\n{}"), broken},
    {"Status1000", sends("HTTP/1.1 1000 Many\r\nContent-Length: 2\r\n\r\n{}"), broken},
    {"InterimOnly", sends("HTTP/1.1 103 Early Hints\r\n\r\n"), lost},
    {"InterimThenFinal", sends("HTTP/1.1 103 Early Hints\r\nLink: </a>\r\n\r\n" + rawAnswer(200)),
        answered(200)},
    {"ContinueThenFinal", sends("HTTP/1.1 100 Continue\r\n\r\n" + rawAnswer(201)), answered(201)},
    {"SwitchingProtocols", sends("HTTP/1.1 101 Switching Protocols\r\nUpgrade: websocket\r\n\r\nabc"),
        unusable("abc")},
    {"EndlessInterim", floods({}, "HTTP/1.1 103 Early Hints\r\n\r\n"), broken},

    {"LengthTooShort", sends("HTTP/1.1 200 OK\r\nContent-Length: 4\r\n\r\n{\"a\":1}"),
        answered(200, "{\"a\"")},
    {"LengthTwiceTheBody", sends("HTTP/1.1 200 OK\r\nContent-Length: 4\r\n\r\n{}"), lost},
    {"TwoLengths", sends("HTTP/1.1 200 OK\r\nContent-Length: 2\r\nContent-Length: 4\r\n\r\n{}  "), broken},
    {"TwoLengthsTheOtherWay", sends("HTTP/1.1 200 OK\r\nContent-Length: 4\r\nContent-Length: 2\r\n\r\n{}  "),
        broken},
    {"NegativeLength", sends("HTTP/1.1 200 OK\r\nContent-Length: -2\r\n\r\n{}"), broken},
    {"LengthOfTwentyDigits", sends("HTTP/1.1 200 OK\r\nContent-Length: 20000000000000000000\r\n\r\n{}"),
        unusable()},
    {"LengthInWords", sends("HTTP/1.1 200 OK\r\nContent-Length: two\r\n\r\n{}"), broken},
    {"LengthBeyondTheLimit", sends("HTTP/1.1 200 OK\r\nContent-Length: 1048577\r\n\r\n{}"), unusable()},
    {"EndlessBody", floods("HTTP/1.1 200 OK\r\n\r\n", QByteArray(65536, 'x')), unusable()},
    {"EndlessChunks", floods(chunked({}), "10000\r\n" + QByteArray(65536, 'x') + "\r\n"), unusable()},

    {"Chunks", sends(chunked("1\r\n{\r\n1\r\n}\r\n0\r\n\r\n")), answered(200)},
    {"ChunksAndTrailer", sends(chunked("2\r\n{}\r\n0\r\nX-Sum: 1\r\n\r\n")), answered(200)},
    {"BrokenChunkSize", sends(chunked("zz\r\n{}\r\n0\r\n\r\n")), lost},
    {"HugeChunkSize", sends(chunked("fffffffffffffffff\r\n{}\r\n0\r\n\r\n")), lost},
    {"ChunksWithoutEnd", sends(chunked("2\r\n{}\r\n")), lost},
    {"ChunkCut", sends(chunked("8\r\n{}")), lost},

    {"CompressedUnasked", sends(rawAnswer(200, "\x1f\x8b\x08", "Content-Encoding: gzip\r\n")),
        answered(200, "\x1f\x8b\x08")},
    {"CompressedOnTheWay",
        sends("HTTP/1.1 200 OK\r\nTransfer-Encoding: gzip, chunked\r\n\r\n2\r\n{}\r\n0\r\n\r\n"), broken},

    {"AnotherProtocol", sends("SSH-2.0-OpenSSH_9.2\r\n"), broken},
    {"JustText", sends("Hello.\n"), broken},
    {"NewerProtocol", sends("HTTP/3 200 OK\r\nContent-Length: 2\r\n\r\n{}"), broken},
    {"EndlessStatusLine", floods("HTTP/1.1 200 ", QByteArray(65536, 'x')), broken},
    {"EndlessHeaderLine", floods("HTTP/1.1 200 OK\r\nX-Long: ", QByteArray(65536, 'x')), broken},
    {"EndlessHeaderLines", floods("HTTP/1.1 200 OK\r\n", "X-Many: 1\r\n"), broken},
    {"EndlessBlankLines", floods({}, QByteArray("\r\n").repeated(1000)), broken},
};

} // namespace

class Answers : public testing::TestWithParam<std::tuple<Row, Transport, bool>>
{
protected:
    Answers() { options.largestBody = 1024 * 1024; }

    CurlWebSession::Options options = trusting();
};

/// Whatever the server does after it has read a write, it has read it once; also when reads have left an open
/// connection behind on which the write could have travelled.
TEST_P(Answers, ToAWrite)
{
    const auto& [row, transport, hasOpenConnection] = GetParam();
    const auto server = serve(transport, [&behaviour = row.behaviour](RawConnection& connection) {
        while (connection.readRequest().method() == "GET")
            connection.send(rawAnswer(200));
        behaviour(connection);
    });
    CurlWebSession session(options);
    if (hasOpenConnection) {
        ASSERT_EQ(outcomeOf(session, get(server->url())), answered(200));
    }
    const int before = server->requests();
    EXPECT_EQ(outcomeOf(session, write(server->url())), row.want);
    EXPECT_EQ(server->requests() - before, 1);
}

static std::string caseName(const testing::TestParamInfo<Answers::ParamType>& answer)
{
    const auto& [row, transport, hasOpenConnection] = answer.param;
    return row.name + nameOf(transport) + (hasOpenConnection ? "WhileAnotherIsOpen" : "");
}

INSTANTIATE_TEST_SUITE_P(Of, Answers,
    testing::Combine(
        testing::ValuesIn(rows), testing::Values(Transport::Plain, Transport::Tls), testing::Bool()),
    caseName);
