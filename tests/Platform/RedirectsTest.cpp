#include "WebSessionTest.h"

using namespace Qt::StringLiterals;

/// A redirect is an answer like any other: nobody else learns of the request, nor is it made again.
class Redirects : public testing::TestWithParam<std::tuple<int, QByteArray, Transport>>
{ };

TEST_P(Redirects, AreNotFollowed)
{
    const int status = std::get<int>(GetParam());
    const QByteArray method = std::get<QByteArray>(GetParam());
    const auto transport = std::get<Transport>(GetParam());
    RawServer elsewhere([](RawConnection& connection) {
        connection.readRequest();
        connection.send(rawAnswer(200));
    });
    const QByteArray other = elsewhere.url(u"/taken"_s).toEncoded();
    for (const QByteArray& target :
        {other, QByteArray("//127.0.0.1:1/x"), QByteArray("/"), QByteArray("file:///etc/passwd"),
            QByteArray("data:application/json,{}"), QByteArray("javascript:1"), QByteArray()}) {
        const auto server = serve(transport, [&](RawConnection& connection) {
            connection.readRequest();
            connection.send(rawAnswer(status, "{}", "Location: " + target + "\r\n"));
            connection.stall();
        });
        CurlWebSession session(trusting());
        EXPECT_EQ(outcomeOf(session, write(server->url(), method)), answered(status)) << target.constData();
        EXPECT_EQ(server->requests(), 1) << target.constData();
    }
    EXPECT_EQ(elsewhere.connections(), 0);
}

static std::string caseName(const testing::TestParamInfo<Redirects::ParamType>& redirect)
{
    const auto& [status, method, transport] = redirect.param;
    return std::to_string(status) + method.toStdString() + nameOf(transport);
}

INSTANTIATE_TEST_SUITE_P(Of, Redirects,
    testing::Combine(testing::Values(301, 302, 303, 307, 308),
        testing::Values("GET", "POST", "PUT", "DELETE"), testing::Values(Transport::Plain, Transport::Tls)),
    caseName);
