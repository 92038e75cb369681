#include "EvenLines.h"

#include <QTextBlock>
#include <QTextLayout>

/// Everything that shows or measures a block asks for its rectangle first, and this sees to its lines then.
QRectF EvenLines::blockBoundingRect(const QTextBlock& block) const
{
    QRectF rect = QPlainTextDocumentLayout::blockBoundingRect(block);
    if (!block.isValid() || !block.isVisible())
        return rect;
    const QTextLayout* layout = block.layout();
    const qreal natural = layout->boundingRect().bottom();
    qreal top = 0;
    for (int number = 0; number < layout->lineCount(); ++number) {
        QTextLine line = layout->lineAt(number);
        // Scripts with taller letters than the font's own get the room that they need.
        const qreal height = qMax(qreal(Type::lineHeight(style_)), line.height());
        line.setPosition({line.position().x(), top + (height - line.height()) / 2});
        top += height;
    }
    rect.setHeight(rect.height() - natural + top);
    return rect;
}
