#include "PlainText.h"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QPainter>
#include <QStyle>
#include <QTextDocument>

#include <cmath>

using namespace Qt::StringLiterals;

namespace PlainText {
namespace {

constexpr qsizetype longestLine = 500;
constexpr qsizetype longestParagraph = 20'000;
constexpr qsizetype longestToolTip = 1'000;
/// Qt breaks the lines of markup only.
constexpr qsizetype longestToolTipLine = 100;

QString cut(const QString& text, qsizetype length)
{
    return text.size() <= length ? text : text.left(length) + u'…';
}

bool isLineBreak(QChar character)
{
    return character == u'\n' || character == QChar::ParagraphSeparator || character == QChar::LineSeparator;
}

/// An address that takes two lines is broken behind its sign rather than within a name.
QString breakable(QString text)
{
    // With a blank of no width.
    return text.replace(u'@', u"@\u200B"_s);
}

QString withBreaks(QString text, QChar lineBreak)
{
    text.replace(u"\r\n"_s, u"\n"_s);
    for (auto& character : text) {
        if (isLineBreak(character) || character == u'\r')
            character = lineBreak;
        else if (character.category() == QChar::Other_Control)
            character = u' ';
    }
    return text;
}

} // namespace

QString singleLine(const QString& text)
{
    auto line = cut(text, longestLine);
    for (auto& character : line) {
        if (isLineBreak(character) || character.category() == QChar::Other_Control)
            character = u' ';
    }
    return line;
}

QString printable(const QString& text)
{
    return withBreaks(text, u'\n');
}

QString elided(const QString& text, const Type::Style& style, int width)
{
    return QFontMetricsF(Type::font(style)).elidedText(singleLine(text), Qt::ElideRight, width);
}

int width(const QString& text, const Type::Style& style)
{
    return static_cast<int>(std::ceil(QFontMetricsF(Type::font(style)).horizontalAdvance(singleLine(text))));
}

QString toolTip(const QString& text)
{
    const bool fitsOneLine = text.size() <= longestToolTipLine && !text.contains(u'\n');
    if (fitsOneLine && !Qt::mightBeRichText(text))
        return text;
    return u"<span>%1</span>"_s.arg(cut(text, longestToolTip).toHtmlEscaped());
}

void draw(QPainter& painter, const QRectF& box, const QString& text, const Type::Style& style,
    const QColor& color, Qt::Alignment alignment)
{
    painter.setFont(Type::font(style));
    painter.setPen(color);
    const auto line = elided(text, style, static_cast<int>(std::ceil(box.width())));
    const auto visual = QStyle::visualAlignment(QGuiApplication::layoutDirection(), alignment);
    const auto direction = painter.layoutDirection();
    // The text's own first letters say which way it runs, whatever the way of the window.
    painter.setLayoutDirection(Qt::LayoutDirectionAuto);
    painter.drawText(box, static_cast<int>(visual | Qt::AlignAbsolute) | Qt::TextSingleLine, line);
    painter.setLayoutDirection(direction);
}

int lines(const QString& text, const Type::Style& style, int width, int most)
{
    // No letter is wider than the type is high, and most texts are short.
    if (text.size() * Type::scaled(style.pixels) <= width || PlainText::width(text, style) <= width)
        return 1;
    return qMin(most, Paragraph(singleLine(text), style, width).lineCount());
}

int evenWidth(const QString& text, const Type::Style& style, int width)
{
    // A long text is read, not looked at.
    constexpr qsizetype longestEvened = 300;
    if (text.size() > longestEvened)
        return width;
    const Paragraph natural(text, style, width);
    const int count = natural.lineCount();
    const bool endsAlone = count > 1 && !natural.partedAt(count - 1).second.trimmed().contains(u' ');
    if (!endsAlone || text.contains(u'\n'))
        return width;
    int least = width / 2;
    int most = width;
    while (least < most) {
        const int middle = (least + most) / 2;
        if (Paragraph(text, style, middle).lineCount() > count)
            least = middle + 1;
        else
            most = middle;
    }
    return most;
}

void drawLines(
    QPainter& painter, const QRect& box, const QString& text, const Type::Style& style, const QColor& color)
{
    const int most = qMax(1, box.height() / Type::lineHeight(style));
    if (most == 1)
        return draw(painter, box, text, style, color);
    Paragraph whole(singleLine(text), style, box.width());
    if (whole.lineCount() <= most)
        return whole.draw(painter, box, color);
    const auto [before, after] = whole.partedAt(most - 1);
    Paragraph(before + elided(after, style, box.width()), style, box.width()).draw(painter, box, color);
}

Paragraph::Paragraph(const QString& text, const Type::Style& style, int width)
    : layout_(breakable(withBreaks(cut(text, longestParagraph), QChar::LineSeparator)), Type::font(style)),
      style_(style)
{
    QTextOption option;
    option.setWrapMode(width < 0 ? QTextOption::ManualWrap : QTextOption::WrapAtWordBoundaryOrAnywhere);
    option.setTextDirection(Qt::LayoutDirectionAuto);
    option.setAlignment(Qt::AlignLeft | Qt::AlignAbsolute);
    layout_.setTextOption(option);
    layout_.setCacheEnabled(true);
    const auto lineHeight = Type::lineHeight(style);
    layout_.beginLayout();
    for (int number = 0;; ++number) {
        auto line = layout_.createLine();
        if (!line.isValid())
            break;
        line.setLineWidth(width < 0 ? 1e6 : width);
        line.setPosition({0, number * lineHeight + (lineHeight - line.height()) / 2});
    }
    layout_.endLayout();
}

int Paragraph::width() const
{
    qreal widest = 0;
    for (int number = 0; number < layout_.lineCount(); ++number)
        widest = qMax(widest, layout_.lineAt(number).naturalTextWidth());
    return static_cast<int>(std::ceil(widest));
}

int Paragraph::height() const
{
    return lineCount() * Type::lineHeight(style_);
}

std::pair<QString, QString> Paragraph::partedAt(int line) const
{
    const int start = layout_.lineAt(line).textStart();
    return {layout_.text().left(start), layout_.text().mid(start)};
}

void Paragraph::draw(QPainter& painter, const QRectF& box, const QColor& color, Qt::Alignment alignment) const
{
    painter.setPen(color);
    for (int number = 0; number < layout_.lineCount(); ++number) {
        const auto line = layout_.lineAt(number);
        const auto room = box.width() - line.naturalTextWidth();
        qreal x = box.left() - line.naturalTextRect().left();
        if (alignment & Qt::AlignHCenter)
            x += room / 2;
        else if (bool(alignment & Qt::AlignTrailing) != QGuiApplication::isRightToLeft())
            x += room;
        line.draw(&painter, {x, box.top()});
    }
}

} // namespace PlainText
