#pragma once

#include "Type.h"

#include <QColor>
#include <QRectF>
#include <QTextLayout>

#include <utility>

class QPainter;

/// Measuring and painting of text that is shown as it stands and never interpreted. Texts come from servers
/// and file names, of any length and with any character in them.
namespace PlainText {

/// The text on one line: line breaks and control characters become blanks, and what is longer than any line
/// on screen is cut.
QString singleLine(const QString& text);
/// The text with its line breaks, written as '\n', and no other control characters.
QString printable(const QString& text);
/// The single line, ending in "…" when it is wider than `width`.
QString elided(const QString& text, const Type::Style& style, int width);
/// Width of the single line.
int width(const QString& text, const Type::Style& style);
/// The text as a tool tip, which Qt would otherwise read as markup.
QString toolTip(const QString& text);

/// Paints one line, elided to the box.
void draw(QPainter& painter, const QRectF& box, const QString& text, const Type::Style& style,
    const QColor& color, Qt::Alignment alignment = Qt::AlignLeading | Qt::AlignVCenter);

/// How many lines of that width a text takes, at most `most` of them.
int lines(const QString& text, const Type::Style& style, int width, int most);
/// A width, not above `width`, at which a text takes as many lines and does not end in a line of one word.
int evenWidth(const QString& text, const Type::Style& style, int width);
/// Paints a text on as many lines as the box is high; the last of them is elided.
void drawLines(
    QPainter& painter, const QRect& box, const QString& text, const Type::Style& style, const QColor& color);

/// Text broken into lines of the style's height.
class Paragraph
{
public:
    /// \param width  negative: lines end only where the text says so
    Paragraph(const QString& text, const Type::Style& style, int width);

    int width() const; ///< of the widest line
    int height() const;
    int lineCount() const { return qMax(1, layout_.lineCount()); }
    /// What stands before a line, and what from there on.
    std::pair<QString, QString> partedAt(int line) const;
    /// \param box  only its top, left and width matter
    void draw(QPainter& painter, const QRectF& box, const QColor& color,
        Qt::Alignment alignment = Qt::AlignLeading) const;

private:
    QTextLayout layout_;
    Type::Style style_;
};

} // namespace PlainText
