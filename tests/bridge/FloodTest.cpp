#include "support/Child.h"
#include "support/RawConnection.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <csignal>

namespace {

const std::string signIn = "POST /mobile-bridge/v1/auth/password-login HTTP/1.1\r\nHost: localhost\r\n";
const std::string inChunks = signIn + "Transfer-Encoding: chunked\r\n\r\n";

/// What a stranger sends at first, and then without end.
struct Flood
{
    const char* name;
    std::string begin;
    std::string piece;
};

void PrintTo(const Flood& flood, std::ostream* stream)
{
    *stream << flood.name;
}

class Floods : public testing::TestWithParam<Flood>
{ };

} // namespace

TEST_P(Floods, TakeNoMemoryAndHurtNobody)
{
    const TemporaryFolder folder;
    Child child(folder.path(), {});
    ASSERT_TRUE(child.isListening()) << child.output();
    ASSERT_EQ(child.api().get("//").status, 200);
    child.beginMeasurement();
    const std::size_t before = child.peakMemory();
    ASSERT_GT(before, 0u);
    {
        RawConnection connection(child.port());
        connection.send(GetParam().begin);
        connection.flood(GetParam().piece, 200u << 20);
    }
    EXPECT_LT(child.peakMemory() - before, 32u << 20);
    EXPECT_EQ(child.api().get("//").status, 200);
    EXPECT_EQ(child.end(SIGTERM), 0);
}

INSTANTIATE_TEST_SUITE_P(Every, Floods,
    testing::Values(Flood{"OneLine", "GET / HTTP/1.1\r\nX-Long: ", "xxxxxxxx"},
        Flood{"Lines", "GET / HTTP/1.1\r\n", "X-Name: y\r\n"},
        Flood{"LinesBehindABareLineFeed", "GET / HTTP/1.1\r\n\n", "X-Name: y\r\n"},
        Flood{"OneLineBehindABareLineFeed", "GET / HTTP/1.1\r\n\n", "xxxxxxxx"},
        Flood{"LinesBehindTwoReturns", "GET / HTTP/1.1\r\n\r\r\n", "X-Name: y\r\n"},
        Flood{"ReturnsAndFeeds", "", "\r\r\n"}, Flood{"EmptyLines", "", "\r\n"},
        Flood{"SizeOfAChunk", inChunks, "0"}, Flood{"ExtensionOfAChunk", inChunks + "1;", "xxxxxxxx"},
        Flood{"ChunksWithExtensions", inChunks, "1;" + std::string(1000, 'x') + "\r\na\r\n"},
        Flood{"Trailers", inChunks + "0\r\n", "X-Name: y\r\n"},
        Flood{"OneTrailer", inChunks + "0\r\nX-Long: ", "xxxxxxxx"},
        Flood{"BodyOfAnOddMethod", "PRI * HTTP/1.1\r\nContent-Length: 1000000000\r\n\r\n", "xxxxxxxx"},
        Flood{"BodyOfALookUp", "GET / HTTP/1.1\r\nContent-Length: 1000000000\r\n\r\n", "xxxxxxxx"},
        Flood{"BodyForNobody", "PUT /a HTTP/1.1\r\nContent-Length: 1000000000\r\n\r\n", "xxxxxxxx"},
        Flood{"BodyOfAText", signIn + "Content-Length: 1000000000\r\n\r\n", "xxxxxxxx"}),
    [](const auto& flood) { return flood.param.name; });
