#pragma once

#include "Type.h"

#include <QColor>
#include <QRectF>
#include <QTextLayout>

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

/// Text broken into lines of the style's height.
class Paragraph
{
public:
    /// \param width  negative: lines end only where the text says so
    Paragraph(const QString& text, const Type::Style& style, int width);

    int width() const; ///< of the widest line
    int height() const;
    /// \param box  only its top, left and width matter
    void draw(QPainter& painter, const QRectF& box, const QColor& color,
        Qt::Alignment alignment = Qt::AlignLeading) const;

private:
    QTextLayout layout_;
    Type::Style style_;
};

} // namespace PlainText
