#include "WebSessionTest.h"

using namespace Qt::StringLiterals;

namespace {

void answerOne(RawConnection& connection)
{
    connection.readRequest();
    connection.send(rawAnswer(200, "{}", "Set-Cookie: a=b\r\n"));
}

} // namespace

/// What a request looks like when it arrives.
class Wire : public testing::Test
{
protected:
    RawRequest arrived(const Request& request)
    {
        EXPECT_EQ(outcomeOf(session, request), answered(200));
        return server.seen().last();
    }

    RawServer server{answerOne};
    CurlWebSession session{trusting()};
};

TEST_F(Wire, EveryMethodCarriesItsBody)
{
    for (const char* method : {"POST", "PUT", "DELETE", "PATCH", "GET"}) {
        const RawRequest request = arrived(write(server.url(u"/a/b"_s), method, "{\"n\":1}"));
        EXPECT_EQ(request.method(), method);
        EXPECT_EQ(request.target(), "/a/b");
        EXPECT_EQ(request.body, "{\"n\":1}");
        EXPECT_EQ(request.header("Content-Length"), "7");
        EXPECT_EQ(request.header("Content-Type"), "application/json");
        EXPECT_EQ(request.header("Authorization"), "Bearer secret");
    }
}

TEST_F(Wire, AWriteWithoutABodySaysSo)
{
    for (const char* method : {"POST", "PUT", "DELETE"}) {
        const RawRequest request = arrived(write(server.url(), method, {}));
        EXPECT_EQ(request.method(), method);
        EXPECT_EQ(request.header("Content-Length"), "0");
    }
}

TEST_F(Wire, AReadHasNoBody)
{
    const RawRequest request = arrived(get(server.url()));
    EXPECT_EQ(request.method(), "GET");
    EXPECT_EQ(request.header("Content-Length"), "");
}

TEST_F(Wire, NothingIsAskedForThatNobodyReads)
{
    for (const Request& request :
        {get(server.url()), write(server.url(), "POST", QByteArray(2'000'000, 'x'))}) {
        const RawRequest seen = arrived(request);
        for (const char* name : {"Expect", "Accept-Encoding", "TE", "Transfer-Encoding", "Upgrade", "Cookie"})
            EXPECT_EQ(seen.header(name), "") << name;
        EXPECT_TRUE(seen.head.contains(" HTTP/1.1\r\n"));
    }
}

TEST_F(Wire, CookiesAreForgotten)
{
    arrived(get(server.url()));
    EXPECT_EQ(arrived(get(server.url())).header("Cookie"), "");
}

TEST_F(Wire, TheAddressArrivesAsItIs)
{
    QUrl url = server.url();
    url.setPath(u"/sessions/7"_s);
    url.setQuery(u"q=a%26b%20%C3%BC+c&empty="_s, QUrl::StrictMode);
    url.setFragment(u"secret"_s);
    const RawRequest request = arrived(get(url));
    EXPECT_EQ(request.target(), "/sessions/7?q=a%26b%20%C3%BC+c&empty=");
    EXPECT_FALSE(request.head.contains("secret"));
}

TEST_F(Wire, HeadersArriveAsTheyAre)
{
    Request request = get(server.url());
    request.headers = {{"X-Plain", "a: b; c"}, {"X-Utf8", "\xc3\xbc"}, {"X-Empty", ""}, {"X-Blank", "  "},
        {"Accept", "application/json"}};
    const RawRequest seen = arrived(request);
    EXPECT_EQ(seen.header("X-Plain"), "a: b; c");
    EXPECT_EQ(seen.header("X-Utf8"), "\xc3\xbc");
    EXPECT_TRUE(seen.head.contains("X-Empty:"));
    EXPECT_TRUE(seen.head.contains("X-Blank:"));
    EXPECT_EQ(seen.head.count("Accept:"), 1);
}
