#include "PropertyList.h"

#include "Generators.h"
#include "PropertyLists.h"
#include "Rows.h"

#include <rapidcheck/gtest.h>

#include <QStringEncoder>

using namespace Qt::StringLiterals;
using namespace PropertyLists;

namespace {

const QString apiKey = u"API_KEY"_s;

struct ListRow : Named
{
    QByteArray list;
    std::optional<QString> value;
};

class PropertyListText : public testing::TestWithParam<ListRow>
{ };

TEST_P(PropertyListText, IsFoundOrNothing)
{
    EXPECT_EQ(PropertyList::text(GetParam().list, apiKey), GetParam().value);
}

QByteArray holding(const QByteArray& value)
{
    return xml("<dict><key>OTHER</key><string>x</string><key>API_KEY</key>" + value + "</dict>");
}

INSTANTIATE_TEST_SUITE_P(Xml, PropertyListText,
    testing::Values(ListRow{{"Text"}, holding("<string>abc</string>"), u"abc"_s},
        ListRow{{"Escapes"}, holding("<string>a&amp;b&lt;c&#233;</string>"), u"a&b<cé"_s},
        ListRow{{"Utf8"}, holding("<string>é😀</string>"), u"é😀"_s},
        ListRow{{"BlanksStay"}, holding("<string> a </string>"), u" a "_s},
        ListRow{{"Empty"}, holding("<string></string>"), {}}, ListRow{{"EmptyTag"}, holding("<string/>"), {}},
        ListRow{{"Integer"}, holding("<integer>1</integer>"), {}}, ListRow{{"True"}, holding("<true/>"), {}},
        ListRow{{"Data"}, holding("<data>YWJj</data>"), {}},
        ListRow{{"Date"}, holding("<date>2030-01-01T00:00:00Z</date>"), {}},
        ListRow{{"Array"}, holding("<array><string>abc</string></array>"), {}},
        ListRow{{"Dictionary"}, holding("<dict><key>a</key><string>b</string></dict>"), {}},
        ListRow{{"InnerDictionary"},
            xml("<dict><key>a</key><dict><key>API_KEY</key><string>abc</string></dict></dict>"), {}},
        ListRow{{"OtherCase"}, xml("<dict><key>api_key</key><string>abc</string></dict>"), {}},
        ListRow{{"EmptyDictionary"}, xml("<dict/>"), {}},
        ListRow{{"RootText"}, xml("<string>API_KEY</string>"), {}},
        ListRow{{"RootArray"}, xml("<array><string>API_KEY</string></array>"), {}},
        ListRow{{"BadUtf8"}, holding("<string>\xFF</string>"), QString(QChar::ReplacementCharacter)},
        ListRow{{"UnknownEntity"}, holding("<string>&bad;</string>"), {}}),
    RowName());

/// As the makers of such lists write them: with a document type, comments, and other types beside the key.
QByteArray usualList()
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n"
           "<!DOCTYPE plist PUBLIC \"-//EXAMPLE//DTD PLIST 1.0//EN\" \"http://www.example.com/list.dtd\">\r\n"
           "<!-- the service's -->\r\n<plist version=\"1.0\">\r\n<dict>\r\n"
           "\t<key>IS_ADS_ENABLED</key>\r\n\t<false></false>\r\n\t<key>COUNT</key><integer>7</integer>\r\n"
           "\t<key>LIST</key><array><string>x</string><true/></array><!-- and -->\r\n"
           "\t<key>API_KEY</key>\r\n\t<string>abcé</string>\r\n"
           "\t<key>PLIST_VERSION</key><string>1</string>\r\n</dict>\r\n</plist>\r\n";
}

QByteArray encoded(QStringConverter::Encoding encoding, QStringConverter::Flag flag)
{
    QStringEncoder encode(encoding, flag);
    return encode(QString::fromUtf8(usualList()));
}

constexpr auto marked = QStringConverter::Flag::WriteBom;
constexpr auto bare = QStringConverter::Flag::Default;

INSTANTIATE_TEST_SUITE_P(UsualXml, PropertyListText,
    testing::Values(ListRow{{"Utf8"}, usualList(), u"abcé"_s},
        ListRow{{"Utf8Marked"}, encoded(QStringConverter::Utf8, marked), u"abcé"_s},
        ListRow{{"Utf16Little"}, encoded(QStringConverter::Utf16LE, bare), u"abcé"_s},
        ListRow{{"Utf16LittleMarked"}, encoded(QStringConverter::Utf16LE, marked), u"abcé"_s},
        ListRow{{"Utf16Big"}, encoded(QStringConverter::Utf16BE, bare), u"abcé"_s},
        ListRow{{"Utf16BigMarked"}, encoded(QStringConverter::Utf16BE, marked), u"abcé"_s},
        ListRow{{"Utf16WithItsDeclaration"},
            encoded(QStringConverter::Utf16LE, marked)
                .replace(QByteArray("U\0T\0F\0-\08\0", 10), QByteArray("U\0T\0F\0-\01\0006\0", 12)),
            u"abcé"_s},
        ListRow{{"MarkAlone"}, "\xEF\xBB\xBF", {}},
        ListRow{{"MarkedBinary"}, "\xEF\xBB\xBF" + binary({dictionary({1, 2}), text("API_KEY"), text("abc")}),
            {}}),
    RowName());

TEST(PropertyListDictionary, IsToldFromAnyOtherRoot)
{
    EXPECT_TRUE(PropertyList::isDictionary(usualList()));
    EXPECT_TRUE(PropertyList::isDictionary(xml("<dict/>")));
    EXPECT_FALSE(PropertyList::isDictionary(xml("<array/>")));
    EXPECT_FALSE(PropertyList::isDictionary("no list"));
    EXPECT_FALSE(PropertyList::isDictionary({}));
}

INSTANTIATE_TEST_SUITE_P(Malformed, PropertyListText,
    testing::Values(ListRow{{"Nothing"}, "", {}}, ListRow{{"Blank"}, " \n", {}},
        ListRow{{"Words"}, "hello", {}}, ListRow{{"Json"}, R"({"API_KEY":"abc"})", {}},
        ListRow{{"OpenStepGarbage"}, "{ API_KEY = ", {}},
        ListRow{{"CutInTag"}, holding("<string>abc</string>").left(90), {}},
        ListRow{{"WrongClosingTag"}, xml("<dict><key>API_KEY</key><string>abc</key></dict>"), {}},
        ListRow{{"KeyWithoutValue"}, xml("<dict><key>API_KEY</key></dict>"), {}},
        ListRow{{"Html"}, "<html><body>API_KEY</body></html>", {}},
        ListRow{{"Nul"}, QByteArray(4096, '\0'), {}},
        ListRow{{"DeepArrays"}, QByteArray("<plist>") + QByteArray("<array>").repeated(9'000), {}},
        ListRow{{"DeepDictionaries"},
            QByteArray("<plist>") + QByteArray("<dict><key>a</key>").repeated(3'000), {}},
        ListRow{{"DeepAndClosed"},
            xml(QByteArray("<array>").repeated(4'000) + QByteArray("</array>").repeated(4'000)), {}}),
    RowName());

INSTANTIATE_TEST_SUITE_P(Binary, PropertyListText,
    testing::Values(ListRow{{"Text"}, binary({dictionary({1, 2}), text("API_KEY"), text("abc")}), u"abc"_s},
        ListRow{{"LongText"}, binary({dictionary({1, 2}), text("API_KEY"), text(QByteArray(300, 'a'))}),
            QString(300, u'a')},
        ListRow{{"Utf16"},
            binary({dictionary({1, 2}), text("API_KEY"), QByteArray("\x62\x00\xE9\x20\x22", 5)}), u"é•"_s},
        ListRow{{"SharedText"},
            binary({dictionary({1, 2, 3, 3}), text("API_KEY"), text("OTHER"), text("abc")}), u"abc"_s},
        ListRow{{"InnerContainers"},
            binary({dictionary({1, 2, 3, 4}), text("OTHER"), text("API_KEY"), array({5}), text("abc"),
                array({})}),
            u"abc"_s},
        ListRow{{"Empty"}, binary({dictionary({1, 2}), text("API_KEY"), text("")}), {}},
        ListRow{{"Integer"}, binary({dictionary({1, 2}), text("API_KEY"), QByteArray("\x10\x07")}), {}},
        ListRow{{"RootText"}, binary({text("API_KEY")}), {}},
        ListRow{{"RootArray"}, binary({array({1}), text("API_KEY")}), {}},
        ListRow{{"EmptyDictionary"}, binary({dictionary({})}), {}}),
    RowName());

/// Arrays that each hold the next one this many times.
QByteArray nest(quint64 depth, qsizetype times)
{
    QList<QByteArray> objects;
    for (quint64 object = 1; object < depth; ++object)
        objects.append(array(QList<quint64>(times, object)));
    return binary(objects << text("API_KEY"));
}

QByteArray withTrailer(const Trailer& trailer)
{
    return "bplist00" + text("API_KEY") + QByteArray("\0\0\0\x08", 4) + trailer.bytes();
}

INSTANTIATE_TEST_SUITE_P(MalformedBinary, PropertyListText,
    testing::Values(ListRow{{"HeaderOnly"}, "bplist00", {}},
        ListRow{{"UnknownVersion"}, "bplist99" + QByteArray(64, '\0'), {}},
        ListRow{{"ZeroTrailer"}, "bplist00" + QByteArray(64, '\0'), {}},
        ListRow{{"HoldsItself"}, binary({array({0})}), {}},
        ListRow{{"HoldEachOther"}, binary({dictionary({1, 2}), text("API_KEY"), array({3}), array({2})}), {}},
        ListRow{{"SharedContainer"},
            binary({dictionary({1, 2, 3, 3}), text("API_KEY"), text("OTHER"), array({2})}), {}},
        ListRow{{"ReferenceBeyondEnd"}, binary({dictionary({1, 9}), text("API_KEY")}), {}},
        ListRow{{"CountBeyondEnd"},
            binary({dictionary({1, 2}), text("API_KEY"), QByteArray("\xAF\x12\x7F\xFF\xFF\xFF")}), {}},
        ListRow{{"CountOfEightBytes"}, binary({QByteArray("\xDF\x13\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF")}), {}},
        ListRow{{"CountTooWide"}, binary({QByteArray("\xAF\x1F")}), {}},
        ListRow{{"TextBeyondEnd"},
            binary({dictionary({1, 2}), text("API_KEY"), QByteArray("\x5F\x12\x7F\xFF\xFF\xFF")}), {}},
        ListRow{{"ManyObjects"}, withTrailer({.count = ~0ULL, .offsets = 16}), {}},
        ListRow{{"OffsetsBeyondEnd"}, withTrailer({.count = 1, .offsets = ~0ULL}), {}},
        ListRow{{"OffsetsOverTheEnd"}, withTrailer({.count = 60, .offsets = 16}), {}},
        ListRow{{"RootBeyondEnd"}, withTrailer({.count = 1, .root = 1, .offsets = 16}), {}},
        ListRow{{"OffsetsWithoutSize"}, withTrailer({.offsetSize = 0, .count = 1, .offsets = 16}), {}},
        ListRow{{"OffsetsTooWide"}, withTrailer({.offsetSize = 255, .count = 1, .offsets = 16}), {}},
        ListRow{{"ReferencesTooWide"}, withTrailer({.referenceSize = 255, .count = 1, .offsets = 16}), {}},
        ListRow{{"Deep"}, nest(5'000, 1), {}}, ListRow{{"Exponential"}, nest(60, 2), {}},
        ListRow{{"ManyCopiesOfALongText"},
            binary({array(QList<quint64>(10'000, 1)), text(QByteArray(30'000, 'a'))}), {}}),
    RowName());

TEST(PropertyListSize, IsLimited)
{
    const auto padded = [](qsizetype size) {
        const QByteArray list = holding("<string>abc</string>");
        return list + QByteArray(size - list.size(), ' ');
    };
    EXPECT_EQ(PropertyList::text(padded(PropertyList::maximumSize), apiKey), u"abc"_s);
    EXPECT_EQ(PropertyList::text(padded(PropertyList::maximumSize + 1), apiKey), std::nullopt);
}

RC_GTEST_PROP(PropertyListProperty, OutlivesDamagedLists, ())
{
    const QByteArray list
        = *rc::gen::element(holding("<string>a&amp;c</string>"), encoded(QStringConverter::Utf16BE, marked),
            binary({dictionary({1, 2, 3, 4}), text("OTHER"), text("API_KEY"), array({2, 4}), text("abc")}));
    const auto value = PropertyList::text(*Generate::damaged(list), apiKey);
    RC_CLASSIFY(value.has_value(), "found");
    RC_ASSERT(!value || !value->isEmpty());
}

} // namespace
