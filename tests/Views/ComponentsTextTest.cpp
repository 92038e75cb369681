#include "ComponentsTest.h"
#include "Palette.h"
#include "PlainText.h"

#include "Components/AlertDialog.h"
#include "Components/CompactStatCard.h"
#include "Components/EmptyStateView.h"
#include "Components/FeatureLine.h"
#include "Components/InfoTile.h"
#include "Components/ListRow.h"
#include "Components/LoadingLine.h"
#include "Components/MetricTile.h"
#include "Components/PlainLabel.h"
#include "Components/SectionTitle.h"
#include "Components/StatusPill.h"
#include "Components/SymbolLine.h"
#include "Components/TextEditor.h"
#include "Components/WorkspaceHero.h"

#include <QGlyphRun>
#include <QPlainTextEdit>
#include <QRawFont>
#include <QTextDocument>
#include <QTextLayout>

using namespace Qt::StringLiterals;

namespace {

const auto markup = u"<b>x</b> & <img src=\"file:///etc/passwd\">"_s;

struct StatusRow
{
    std::string name;
    QString status;
    QString reads;
};

class StatusWording : public testing::TestWithParam<StatusRow>
{ };

} // namespace

TEST_P(StatusWording, CapitalisesEachWord)
{
    StatusPill pill(GetParam().status);
    EXPECT_EQ(pill.text(), GetParam().reads);
    EXPECT_EQ(accessibleName(&pill), GetParam().reads);
}

INSTANTIATE_TEST_SUITE_P(Texts, StatusWording,
    testing::Values(StatusRow{"Empty", u""_s, u"Requested"_s},
        StatusRow{"Lower", u"scheduled"_s, u"Scheduled"_s},
        StatusRow{"Upper", u"COMPLETED"_s, u"Completed"_s},
        StatusRow{"TwoWords", u"in progress"_s, u"In Progress"_s},
        StatusRow{"Hyphen", u"walk-in"_s, u"Walk-In"_s}, StatusRow{"Markup", u"<b>x</b>"_s, u"<B>X</B>"_s}),
    ByName());

class ComponentsText : public ComponentsTest
{ };

TEST_F(ComponentsText, EveryLabelShowsMarkupAsItStands)
{
    show({new PlainLabel(markup), new SectionTitle(markup, markup),
        new FeatureLine(u"power"_s, markup, markup), new InfoTile(u"power"_s, markup, markup),
        new MetricTile(markup, markup, u"power"_s), new CompactStatCard(markup, markup, u"power"_s, markup),
        new SymbolLine(u"power"_s, markup), new EmptyStateView(u"power"_s, markup, markup),
        new WorkspaceHero(markup, markup, markup), new LoadingLine(markup)});
    AlertDialog::present(&window, markup, markup);
    const auto labels = window.findChildren<QLabel*>();
    EXPECT_GE(labels.size(), 18);
    for (const auto* label : labels) {
        EXPECT_EQ(label->textFormat(), Qt::PlainText);
        EXPECT_EQ(label->text(), markup);
    }
}

TEST_F(ComponentsText, MarkupAndItsPlainTextLookDifferent)
{
    auto* marked = new PlainLabel(u"<b>x</b>"_s);
    auto* plain = new PlainLabel(u"x"_s);
    EXPECT_GT(marked->sizeHint().width(), plain->sizeHint().width());
    show({marked, plain});
}

struct TipRow
{
    std::string name;
    QString text;
    QString shown;
};

class ToolTipText : public testing::TestWithParam<TipRow>
{ };

TEST_P(ToolTipText, IsShownAsItStands)
{
    const auto tip = PlainText::toolTip(GetParam().text);
    if (!Qt::mightBeRichText(tip)) {
        EXPECT_EQ(tip, GetParam().shown);
        return;
    }
    QTextDocument document;
    document.setHtml(tip);
    EXPECT_EQ(document.toPlainText(), GetParam().shown);
}

INSTANTIATE_TEST_SUITE_P(Texts, ToolTipText,
    testing::Values(TipRow{"Empty", u""_s, u""_s}, TipRow{"Plain", u"deed.pdf"_s, u"deed.pdf"_s},
        TipRow{"Bold", u"<b>x</b>"_s, u"<b>x</b>"_s},
        TipRow{"Image", u"<img src=file:///x>"_s, u"<img src=file:///x>"_s},
        TipRow{"Comparison", u"a < b and c > d"_s, u"a < b and c > d"_s},
        TipRow{"Entity", u"a &amp; b"_s, u"a &amp; b"_s},
        TipRow{"LongEntity", u"&lt;"_s.repeated(80), u"&lt;"_s.repeated(80)},
        TipRow{"Endless", u"x"_s.repeated(5000), u"x"_s.repeated(1000) + u'…'}),
    ByName());

struct LineRow
{
    std::string name;
    QString text;
    QString shown;
};

class SingleLine : public testing::TestWithParam<LineRow>
{ };

TEST_P(SingleLine, HoldsNoBreaksAndNoControlCharacters)
{
    EXPECT_EQ(PlainText::singleLine(GetParam().text), GetParam().shown);
}

INSTANTIATE_TEST_SUITE_P(Texts, SingleLine,
    testing::Values(LineRow{"Plain", u"Priya Raman"_s, u"Priya Raman"_s},
        LineRow{"Break", u"Priya\nRaman"_s, u"Priya Raman"_s},
        LineRow{"Null", QString(u"a"_s + QChar(u'\0') + u"b"_s), u"a b"_s},
        LineRow{"Tab", u"a\tb"_s, u"a b"_s},
        LineRow{"Endless", u"x"_s.repeated(2'000'000), u"x"_s.repeated(500) + u'…'}),
    ByName());

TEST_F(ComponentsText, AnElidedLabelKeepsItsHeightWhateverItHolds)
{
    PlainLabel label(u"x"_s);
    label.setFit(PlainLabel::Fit::elide);
    const int height = label.sizeHint().height();
    const auto loneSurrogate = QString(QChar(0xD800));
    const auto override = QString(QChar(0x202E)) + u"gnp.deed"_s;
    for (const auto& text : {u"a\nb\nc"_s, loneSurrogate, override, u"x"_s.repeated(2'000'000)}) {
        label.setText(text);
        EXPECT_EQ(label.sizeHint().height(), height);
        label.resize(100, height);
        label.grab();
    }
}

TEST_F(ComponentsText, AWrappingLabelGrowsByWholeLines)
{
    PlainLabel label(u"Choose a session from the list to view details, messages, and controls."_s);
    EXPECT_EQ(label.heightForWidth(2000), 20);
    EXPECT_EQ(label.heightForWidth(200) % 20, 0);
    EXPECT_GT(label.heightForWidth(200), 20);
    label.setText(u"one\ntwo"_s);
    EXPECT_EQ(label.heightForWidth(2000), 40);
}

TEST_F(ComponentsText, TheLinesOfAnEditorAreAsFarApartAsThoseOfALabel)
{
    auto* editor = shown(new TextEditor(u"Notes"_s));
    editor->setText(u"one\ntwo\n"_s + u"a long line that wraps "_s.repeated(8));
    auto* edit = editor->edit();
    QTextCursor cursor(edit->document());
    QList<int> tops;
    do
        tops += edit->cursorRect(cursor).top();
    while (cursor.movePosition(QTextCursor::Down));
    ASSERT_GT(tops.size(), 3);
    for (qsizetype line = 1; line < tops.size(); ++line)
        EXPECT_EQ(tops[line] - tops[line - 1], 20);
}

TEST_F(ComponentsText, TextsThatAreEmptyTakeNoRoom)
{
    auto* withCaption = new SectionTitle(u"Profile"_s, u"About you."_s);
    auto* without = new SectionTitle(u"Profile"_s);
    auto* hero = new WorkspaceHero({}, u"Sessions"_s, u"Yours."_s);
    auto* fullHero = new WorkspaceHero(u"Remote"_s, u"Sessions"_s, u"Yours."_s);
    show({withCaption, without, hero, fullHero});
    EXPECT_EQ(withCaption->sizeHint().height() - without->sizeHint().height(), 20);
    EXPECT_EQ(fullHero->sizeHint().height() - hero->sizeHint().height(), 20);
}

TEST_F(ComponentsText, ARowIsReadOutTitleFirst)
{
    ListRow row;
    row.title = u"Priya Raman"_s;
    row.lines = {u"2026-03-12 2:30 PM"_s, u""_s};
    row.meta = u"Deed"_s;
    row.trailing = u"client"_s;
    row.pill = u"in review"_s;
    EXPECT_EQ(row.spoken(), u"Priya Raman, 2026-03-12 2:30 PM, Deed, client, In Review"_s);
    EXPECT_EQ(ListRow{.title = u"Ada"_s}.spoken(), u"Ada"_s);
    EXPECT_EQ((ListRow{.title = u"Ada"_s, .hasPill = true}.spoken()), u"Ada, Requested"_s);
}

/// How much of the colour of its text a label shows, in whole pixels.
static double inkOf(QWidget* label, Brand::Tone ground, Brand::Tone text)
{
    const int from = Palette::color(ground).green();
    const int whole = Palette::color(text).green() - from;
    QImage picture(label->size(), QImage::Format_RGB32);
    picture.fill(Palette::color(ground));
    label->render(&picture, {}, {}, QWidget::DrawChildren);
    double ink = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            ink += double(qGreen(picture.pixel(x, y)) - from) / whole;
    }
    return ink;
}

TEST_F(ComponentsText, LightLettersOnADarkGroundAreHardlyBolder)
{
    auto* body = new PlainLabel(u"Estimated Notary Fee for Priya Raman"_s, Type::body);
    auto* label = new PlainLabel(u"Estimated Notary Fee for Priya Raman"_s, Type::label);
    show({body, label});
    const auto ink = [](QWidget* text) { return inkOf(text, Brand::card, Brand::ink); };
    const double lightBody = ink(body);
    const double lightLabel = ink(label);
    ASSERT_GT(lightBody, 100);
    style()->setDark(true);
    QApplication::processEvents();
    EXPECT_NEAR(ink(body) / lightBody, 1, 0.2);
    EXPECT_NEAR(ink(label) / lightLabel, 1, 0.2);
    EXPECT_GT(ink(label), 1.1 * ink(body)) << "weights still mean something";
}

TEST_F(ComponentsText, LettersOfOtherScriptsAreNeverTakenFromALightFace)
{
    style()->setDark(true);
    const QString hebrew = u"\u05de\u05e1\u05de\u05da"_s;
    QTextLayout layout(hebrew, Type::font(Type::body));
    layout.beginLayout();
    layout.createLine();
    layout.endLayout();
    ASSERT_FALSE(layout.glyphRuns().isEmpty());
    for (const QGlyphRun& run : layout.glyphRuns())
        EXPECT_GE(run.rawFont().weight(), QFont::Normal);
}

TEST_F(ComponentsText, FieldsTakeTheFontOfTheScheme)
{
    auto* editor = shown(new TextEditor(u"Notes"_s));
    const auto families = [editor] { return editor->edit()->font().families(); };
    const QStringList light = families();
    EXPECT_EQ(light, Type::font(Type::body).families());
    style()->setDark(true);
    EXPECT_NE(families(), light);
    EXPECT_EQ(families(), Type::font(Type::body).families());
    EXPECT_EQ(editor->edit()->document()->defaultFont().families(), families());
    style()->setDark(false);
    EXPECT_EQ(families(), light);
}

TEST_F(ComponentsText, NoTextEndsInALineOfOneWord)
{
    const QString text = u"This information is used for booking and account records."_s;
    const int natural = PlainText::width(text, Type::body);
    for (int width = natural / 3; width < natural; width += 7) {
        const int even = PlainText::evenWidth(text, Type::body, width);
        const PlainText::Paragraph lines(text, Type::body, even);
        ASSERT_LE(even, width);
        EXPECT_EQ(lines.lineCount(), PlainText::Paragraph(text, Type::body, width).lineCount());
        if (lines.lineCount() > 1 && lines.lineCount() < 4) {
            EXPECT_TRUE(lines.partedAt(lines.lineCount() - 1).second.trimmed().contains(u' ')) << width;
        }
    }
}
