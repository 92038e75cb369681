#include "Sessions/MessagePieces.h"

#include "Screens/Cases.h"
#include "Screens/Printing.h"

#include <gmock/gmock.h>

#include <rapidcheck/gtest.h>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype longest = 10;

QList<QString> texts(const QString& text)
{
    QList<QString> pieces;
    for (const TextPiece& piece : textPieces(text, longest))
        pieces += text.sliced(piece.from, piece.size);
    return pieces;
}

struct PiecesRow
{
    std::string name;
    QString text;
    QList<QString> pieces;
};

void PrintTo(const PiecesRow& row, std::ostream* out)
{
    *out << row.name;
}

class MessagePieces : public testing::TestWithParam<PiecesRow>
{ };

TEST_P(MessagePieces, EndWhereATextMayBeBroken)
{
    EXPECT_EQ(texts(GetParam().text), GetParam().pieces);
}

QList<QString> list(std::initializer_list<const char16_t*> texts)
{
    QList<QString> list;
    for (const char16_t* text : texts)
        list += QString::fromUtf16(text);
    return list;
}

INSTANTIATE_TEST_SUITE_P(Texts, MessagePieces,
    testing::Values(PiecesRow{"Empty", u""_s, list({u""})}, PiecesRow{"Short", u"a\nb"_s, list({u"a\nb"})},
        PiecesRow{"JustAsLong", u"0123456789"_s, list({u"0123456789"})},
        PiecesRow{"OneWord", u"0123456789abc"_s, list({u"0123456789", u"abc"})},
        PiecesRow{"Blanks", u"one two three"_s, list({u"one two ", u"three"})},
        PiecesRow{"LineBreakBeforeBlank", u"one\ntwo three"_s, list({u"one", u"two three"})},
        PiecesRow{"LastOfSeveralLineBreaks", u"a\nb\n\ncdefghi"_s, list({u"a\nb\n", u"cdefghi"})},
        PiecesRow{"LineBreakAtTheEnd", u"0123456789\n"_s, list({u"0123456789", u"\n"})},
        PiecesRow{"Pair", u"012345678\U0001F600"_s, list({u"012345678", u"\U0001F600"})}),
    ByName());

RC_GTEST_PROP(MessagePiecesProperty, LoseNothingButTheLineBreaksBetweenThem, ())
{
    const auto letters = *rc::gen::container<std::vector<char16_t>>(
        rc::gen::element<char16_t>(u'a', u' ', u'\n', 0xD83D, 0xDE00));
    const QString text = QString::fromUtf16(letters.data(), qsizetype(letters.size()));
    const QList<TextPiece> pieces = textPieces(text, longest);
    RC_ASSERT(!pieces.isEmpty());
    qsizetype end = 0;
    for (const TextPiece& piece : pieces) {
        const QStringView between = QStringView(text).sliced(end, piece.from - end);
        const bool isOneLineBreak = between.isEmpty() || between == u"\n";
        RC_ASSERT(isOneLineBreak);
        RC_ASSERT(piece.size <= longest);
        const QStringView shown = QStringView(text).sliced(piece.from, piece.size);
        RC_ASSERT(shown.count(u'\n') == piece.lineBreaks);
        const bool startsInPair = piece.from > 0 && text.at(piece.from - 1).isHighSurrogate()
            && text.at(piece.from).isLowSurrogate();
        RC_ASSERT(!startsInPair);
        end = piece.from + piece.size;
    }
    RC_ASSERT(end == text.size());
}

} // namespace
