#include "Net/RequestHead.h"

#include <gtest/gtest.h>

using namespace bridge;
using namespace std::string_literals;

namespace {

/// As a connection reads it: byte by byte, to the first that cannot belong to a head.
std::optional<RequestHead> readHead(const std::string& text)
{
    HeadReader reader;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const HeadReader::State state = reader.take(text[i]);
        if (state == HeadReader::State::Refused)
            return std::nullopt;
        if (state == HeadReader::State::Complete) {
            EXPECT_EQ(i + 1, text.size()) << "something is left behind the head";
            return RequestHead::parse(reader.text());
        }
    }
    ADD_FAILURE() << "the head does not end: " << text;
    return std::nullopt;
}

std::string rewritten(const std::string& fields, const std::string& method = "GET")
{
    const auto head = readHead(method + " /a HTTP/1.1\r\n" + fields + "\r\n");
    EXPECT_TRUE(head) << fields;
    const std::string text = head ? head->forLibrary() : std::string();
    return text.substr(0, text.rfind("\r\n")).substr(std::min(text.size(), method.size() + 14));
}

} // namespace

TEST(RequestHead, IsReadInAllItsForms)
{
    for (const char* method : {"GET", "HEAD", "POST", "PUT", "PATCH", "DELETE", "OPTIONS"}) {
        const auto head = readHead(method + " /p?q=1 HTTP/1.1\r\nHost: a\r\n\r\n"s);
        ASSERT_TRUE(head) << method;
        EXPECT_EQ(head->forLibrary(), method + " /p?q=1 HTTP/1.1\r\nHost: a\r\n\r\n"s);
        EXPECT_EQ(head->bodyLength(), 0u);
    }
    EXPECT_TRUE(readHead("GET / HTTP/1.0\r\n\r\n"));
    EXPECT_TRUE(readHead("GET /caf\xc3\xa9 HTTP/1.1\r\nX-Name: caf\xc3\xa9\t1\r\nX-Empty:\r\n\r\n"));
}

TEST(RequestHead, IsRefusedWhereTwoReadersCouldDiffer)
{
    const std::string line = "GET / HTTP/1.1\r\n";
    const std::string heads[] = {// lines
        "\r\n", "GET / HTTP/1.1\n\r\n", line + "A: b\n\r\n", line + "\n", line + "A: b\r\r\n\r\n",
        line + "\r\r\n", line + "A: b\rC: d\r\n\r\n", line + "A: b\0c\r\n\r\n"s, line + "A: b\x01\r\n\r\n",
        line + "A: b\x7f\r\n\r\n", line + "A: b\r\n folded\r\n\r\n", line + "A: b\r\n\tfolded\r\n\r\n",
        line + " A: b\r\n\r\n",
        // names
        line + "A : b\r\n\r\n", line + "A\t: b\r\n\r\n", line + ": b\r\n\r\n", line + "A b: c\r\n\r\n",
        line + "A\r\n\r\n", line + "A(b): c\r\n\r\n", line + "\xc3\xa9: c\r\n\r\n",
        // the first line
        "PRI * HTTP/2.0\r\n\r\n", "PRI / HTTP/1.1\r\n\r\n", "get / HTTP/1.1\r\n\r\n",
        "TRACE / HTTP/1.1\r\n\r\n", "CONNECT a:1 HTTP/1.1\r\n\r\n", "GET / HTTP/1.2\r\n\r\n",
        "GET / HTTP/2.0\r\n\r\n", "GET / http/1.1\r\n\r\n", "GET /\r\n\r\n", "GET\r\n\r\n",
        "GET  HTTP/1.1\r\n\r\n", "GET  / HTTP/1.1\r\n\r\n", "GET / a HTTP/1.1\r\n\r\n",
        "GET /\ta HTTP/1.1\r\n\r\n", " GET / HTTP/1.1\r\n\r\n",
        // framing
        line + "Content-Length: 1\r\nContent-Length: 1\r\n\r\n", line + "Content-Length: 1, 1\r\n\r\n",
        line + "Content-Length:\r\n\r\n", line + "Content-Length: -1\r\n\r\n",
        line + "Content-Length: +1\r\n\r\n", line + "Content-Length: 0x1\r\n\r\n",
        line + "Content-Length: 1 2\r\n\r\n", line + "Content-Length: 18446744073709551616\r\n\r\n",
        line + "Content-Length: 1\r\nTransfer-Encoding: chunked\r\n\r\n",
        line + "Transfer-Encoding: gzip, chunked\r\n\r\n", line + "Transfer-Encoding: identity\r\n\r\n",
        line + "Transfer-Encoding:\r\n\r\n",
        line + "Transfer-Encoding: chunked\r\ntransfer-encoding: chunked\r\n\r\n",
        "POST / HTTP/1.0\r\nTransfer-Encoding: chunked\r\n\r\n",
        "DELETE / HTTP/1.1\r\nTransfer-Encoding: chunked\r\n\r\n", line + "Host: a\r\nhost: b\r\n\r\n"};
    for (const std::string& head : heads)
        EXPECT_FALSE(readHead(head)) << testing::PrintToString(head);
}

TEST(RequestHead, HasBounds)
{
    const auto lines = [](int count, std::size_t length) {
        std::string text = "GET / HTTP/1.1\r\n";
        for (int i = 1; i < count; ++i)
            text += "A: " + std::string(length - 5, 'x') + "\r\n";
        return text + "\r\n";
    };
    EXPECT_TRUE(readHead(lines(200, 100)));
    EXPECT_FALSE(readHead(lines(201, 100)));
    EXPECT_TRUE(readHead(lines(2, 8192)));
    EXPECT_FALSE(readHead(lines(2, 8193)));
    EXPECT_TRUE(readHead(lines(8, 8192)));
    EXPECT_FALSE(readHead(lines(9, 8192)));
}

TEST(RequestHead, TellsHowItsBodyIsFramed)
{
    const auto length = [](const std::string& fields) {
        return readHead("POST / HTTP/1.1\r\n" + fields + "\r\n")->bodyLength();
    };
    EXPECT_EQ(length(""), 0u);
    EXPECT_EQ(length("content-length: \t 0042 \r\n"), 42u);
    EXPECT_EQ(length("Content-Length: 18446744073709551615\r\n"), 18446744073709551615u);
    EXPECT_EQ(length("Transfer-Encoding: Chunked\r\n"), std::nullopt);
}

TEST(RequestHead, TellsThatItsClientWaits)
{
    const auto waits = [](const std::string& version, const std::string& expected) {
        return readHead("PUT / " + version + "\r\nExpect: " + expected + "\r\n\r\n")->awaitsContinue();
    };
    EXPECT_TRUE(waits("HTTP/1.1", "100-continue"));
    EXPECT_TRUE(waits("HTTP/1.1", "100-Continue"));
    EXPECT_FALSE(waits("HTTP/1.0", "100-continue"));
    EXPECT_FALSE(waits("HTTP/1.1", "200-ok"));
}

TEST(RequestHead, IsWrittenAfreshForTheLibrary)
{
    const struct
    {
        std::string sent;
        std::string given;
    } rows[] = {
        {"Host:a\r\nX-B: \t b c \r\n", "Host: a\r\nX-B: b c\r\n"},
        {"X-Sum: 100%41\r\n", "X-Sum: 100%2541\r\n"},
        {"Expect: 100-continue\r\n", ""},
        {"Content-Length: 007\r\n", "Content-Length: 7\r\n"},
        {"Content-Length: 0\r\n", ""},
        {"Transfer-Encoding: chunked\r\n", "X-Received-In-Chunks: yes\r\n"},
        {"X-Received-In-Chunks: yes\r\n", ""},
        {"content-type: a/b\r\nX-Received-Content-Type: c/d\r\n", "X-Received-Content-Type: a/b\r\n"},
        {"X-RECEIVED-content-type: c/d\r\nx-received-range: bytes=1-\r\n", ""},
        {"Range: bytes=0-1\r\n", "X-Received-Range: bytes=0-1\r\n"},
        {"Range: bytes=0-1\r\nRange: bytes=3-4\r\n", ""},
        {"Range: bytes=0-1\r\nIf-Range: \"a\"\r\n", "If-Range: \"a\"\r\n"},
        {"Accept-Encoding: br\r\n", ""},
        {"Accept-Encoding: gzip, deflate, br\r\n", "Accept-Encoding: gzip\r\n"},
        {"Accept-Encoding: br\r\nAccept-Encoding: GZIP;q=0.5\r\n", "Accept-Encoding: gzip\r\n"},
        {"Accept-Encoding: gzip;q=0\r\n", ""},
        {"Accept-Encoding: gzip; q=0.000, identity\r\n", ""},
        {"Connection: Close, TE\r\n", "Connection: close\r\n"},
        {"Connection: keep-alive\r\n", "Connection: Keep-Alive\r\n"},
        {"Connection: upgrade\r\n", ""},
    };
    for (const auto& row : rows)
        EXPECT_EQ(rewritten(row.sent), row.given) << row.sent;
    EXPECT_EQ(rewritten("Range: bytes=0-1\r\n", "HEAD"), "");
}
