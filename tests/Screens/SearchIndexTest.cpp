#include "Screen/SearchIndex.h"

#include "Cases.h"

#include <gmock/gmock.h>
#include <rapidcheck/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// What the index has to find, said in the plainest way.
QList<int> naiveMatches(const QList<QString>& texts, const QString& query)
{
    const QString wanted = query.trimmed().toLower();
    QList<int> rows;
    for (int row = 0; row < texts.size(); ++row) {
        if (texts.at(row).toLower().contains(wanted))
            rows += row;
    }
    return rows;
}

/// Texts over few letters, so that queries match often, overlap themselves and straddle the ends of rows;
/// among them letters of two, three and four UTF-8 bytes, some with another length in lower case.
rc::Gen<QString> someText(int longest)
{
    const auto letters = rc::gen::element(u"a"_s, u"A"_s, u"b"_s, u" "_s, u"\t"_s, u"é"_s, u"É"_s, u"İ"_s,
        u"Ⱥ"_s, u"ß"_s, u"界"_s, u"😀"_s, u"ÿ"_s);
    const auto lists = rc::gen::mapcat(rc::gen::inRange(0, longest + 1), [letters](int length) {
        return rc::gen::container<std::vector<QString>>(std::size_t(length), letters);
    });
    return rc::gen::map(lists, [](const std::vector<QString>& parts) {
        QString text;
        for (const QString& part : parts)
            text += part;
        return text;
    });
}

rc::Gen<QList<QString>> someRows()
{
    return rc::gen::map(rc::gen::container<std::vector<QString>>(someText(12)),
        [](const std::vector<QString>& rows) { return QList<QString>(rows.begin(), rows.end()); });
}

RC_GTEST_PROP(SearchIndexProperty, FindsWhatAFilterOfEachRowFinds, ())
{
    const QList<QString> texts = *someRows();
    const QString query = *someText(3);
    RC_ASSERT(SearchIndex::of(texts).matches(query) == naiveMatches(texts, query));
}

RC_GTEST_PROP(SearchIndexProperty, FindsEveryPieceOfARow, ())
{
    const QList<QString> texts
        = *rc::gen::suchThat(someRows(), [](const auto& rows) { return !rows.isEmpty(); });
    const int row = *rc::gen::inRange(0, int(texts.size()));
    const QString text = texts.at(row);
    const auto start = *rc::gen::inRange<qsizetype>(0, text.size() + 1);
    const auto length = *rc::gen::inRange<qsizetype>(0, text.size() - start + 1);
    const QString piece = text.mid(start, length);
    // Half a character is no text that anybody can type.
    RC_PRE(piece.isValidUtf16());
    RC_ASSERT(SearchIndex::of(texts).matches(piece).contains(row));
}

struct Case
{
    const char* name;
    QList<QString> texts;
    QString query;
    QList<int> rows;
};

void PrintTo(const Case& c, std::ostream* out)
{
    *out << c.name;
}

class SearchIndexCases : public testing::TestWithParam<Case>
{ };

TEST_P(SearchIndexCases, Matches)
{
    EXPECT_EQ(SearchIndex::of(GetParam().texts).matches(GetParam().query), GetParam().rows);
}

INSTANTIATE_TEST_SUITE_P(Queries, SearchIndexCases,
    testing::Values(Case{"NoRows", {}, u"a"_s, {}}, //
        Case{"NoRowsNoQuery", {}, u""_s, {}},
        Case{"EmptyQueryShowsAll", {u"one"_s, u""_s, u"two"_s}, u""_s, {0, 1, 2}},
        Case{"BlankQueryShowsAll", {u"one"_s, u""_s}, u" \t\n"_s, {0, 1}},
        Case{"EmptyRowsNeverMatch", {u""_s, u"x"_s, u""_s, u""_s, u"x"_s}, u"x"_s, {1, 4}},
        Case{"TrimsAndFoldsCase", {u"Anna Smith"_s, u"smythe"_s}, u"  SMITH\n"_s, {0}},
        Case{"InnerBlanksCount", {u"anna smith"_s, u"annasmith"_s}, u"a s"_s, {0}},
        Case{"NotAcrossRows", {u"ab"_s, u"cd"_s}, u"bc"_s, {}},
        Case{"ARowOnceHoweverOftenItMatches", {u"aaaa"_s, u"baab"_s}, u"aa"_s, {0, 1}},
        Case{"FoldsCaseBeyondAscii", {u"ŁUKASZ"_s, u"Ørsted"_s}, u"łuk"_s, {0}},
        Case{"LastBytesOfALetterAreNoLetter", {u"\u00FF"_s, u"\u0100"_s}, u"\u0101"_s, {1}}),
    ByName());

TEST(SearchIndex, CountsItsRows)
{
    EXPECT_EQ(SearchIndex().rowCount(), 0);
    EXPECT_EQ(SearchIndex::of({u"a"_s, u""_s, u"b"_s}).rowCount(), 3);
}

} // namespace
