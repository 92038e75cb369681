#include "AppError.h"
#include "Models/Generators.h"
#include "Models/Rows.h"
#include "RequestPipeline.h"

#include <QUrlQuery>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

using namespace Qt::StringLiterals;

namespace {

const QUrl base(u"https://bridge.example/mobile-bridge/v1"_s);

struct Address : Named
{
    QString base;
    QString path;
    QueryItems query;
    QByteArray expected;
};

class MakeURL : public testing::TestWithParam<Address>
{ };

TEST_P(MakeURL, JoinsBasePathAndQuery)
{
    const Address& row = GetParam();
    EXPECT_EQ(makeURL(QUrl(row.base), row.path, row.query).toEncoded(), row.expected);
}

const QString plain = u"https://h.example/v1"_s;

INSTANTIATE_TEST_SUITE_P(Addresses, MakeURL,
    testing::Values(
        // clang-format off
        Address{{"NoSlash"}, plain, u"sessions"_s, {}, "https://h.example/v1/sessions"},
        Address{{"LeadingSlash"}, plain, u"/sessions"_s, {}, "https://h.example/v1/sessions"},
        Address{{"TrailingSlash"}, plain, u"/sessions/"_s, {}, "https://h.example/v1/sessions"},
        Address{{"InnerSlashesStay"}, plain, u"//a//b//"_s, {}, "https://h.example/v1/a//b"},
        Address{{"BaseWithSlashes"}, u"https://h.example/v1//"_s, u"/a"_s, {}, "https://h.example/v1/a"},
        Address{{"BaseWithPort"}, u"https://h.example:8443"_s, u"/v1/token"_s, {}, "https://h.example:8443/v1/token"},
        Address{{"NoItemsNoQuestionMark"}, plain, u"/remote-notary/sessions/"_s, {}, "https://h.example/v1/remote-notary/sessions"},
        Address{{"ItemsInTheirOrder"}, plain, u"s"_s, {{u"scope"_s, u"notary"_s}, {u"a"_s, u"b"_s}}, "https://h.example/v1/s?scope=notary&a=b"},
        Address{{"EmptyValue"}, plain, u"s"_s, {{u"scope"_s, u""_s}}, "https://h.example/v1/s?scope="},
        Address{{"Separators"}, plain, u"s"_s, {{u"a&b"_s, u"c=d&e#f"_s}}, "https://h.example/v1/s?a%26b=c%3Dd%26e%23f"},
        Address{{"PlusAndBlank"}, plain, u"s"_s, {{u"q"_s, u"a+b c"_s}}, "https://h.example/v1/s?q=a%2Bb%20c"},
        Address{{"PercentIsNoEncoding"}, plain, u"s"_s, {{u"q"_s, u"100%25"_s}}, "https://h.example/v1/s?q=100%2525"},
        Address{{"Umlaut"}, plain, u"s"_s, {{u"q"_s, u"Ä"_s}}, "https://h.example/v1/s?q=%C3%84"}
        // clang-format on
        ),
    RowName());

class NoAddress : public testing::TestWithParam<Address>
{ };

TEST_P(NoAddress, IsRefusedWithTheGeneralSentence)
{
    try {
        const QUrl url = makeURL(QUrl(GetParam().base), GetParam().path);
        ADD_FAILURE() << url.toEncoded().toStdString();
    } catch (const AppError& error) {
        EXPECT_EQ(error.message(), u"We could not complete that request. Please try again."_s);
    }
}

INSTANTIATE_TEST_SUITE_P(Addresses, NoAddress,
    testing::Values(
        // clang-format off
        Address{{"Nothing"}, u""_s, u""_s, {}, {}},
        Address{{"NoScheme"}, u"h.example/v1"_s, u"a"_s, {}, {}},
        Address{{"NoHost"}, u"https:///"_s, u"a"_s, {}, {}},
        Address{{"BlankInPath"}, plain, u"a b"_s, {}, {}},
        Address{{"HalfAnEncoding"}, plain, u"a%2"_s, {}, {}} // clang-format on
        ),
    RowName());

/// As a server reads a query: split first, then decoded.
QueryItems readBack(const QUrl& url)
{
    QueryItems items;
    const QByteArray query = url.toEncoded().split('?').value(1);
    for (const QByteArray& item : query.split('&')) {
        const QByteArrayList sides = item.split('=');
        items += {QString::fromUtf8(QByteArray::fromPercentEncoding(sides.value(0))),
            QString::fromUtf8(QByteArray::fromPercentEncoding(sides.value(1)))};
    }
    return items;
}

RC_GTEST_PROP(MakeURLProperty, NamesAndValuesArriveAsTheyAre, ())
{
    const auto items = *rc::gen::nonEmpty(rc::gen::container<std::vector<std::pair<QString, QString>>>(
        rc::gen::pair(Generate::text(), Generate::text())));
    const QueryItems query(items.begin(), items.end());
    RC_ASSERT(readBack(makeURL(base, u"/sessions"_s, query)) == query);
}

RC_GTEST_PROP(MakeURLProperty, OuterSlashesMakeNoDifference, ())
{
    const auto slashes = [] { return QString(*rc::gen::inRange(0, 4), u'/'); };
    const QString path = slashes() + u"remote-notary/sessions/7"_s + slashes();
    const QUrl paddedBase(base.toString() + slashes());
    RC_ASSERT(makeURL(paddedBase, path) == makeURL(base, u"remote-notary/sessions/7"_s));
}

} // namespace
