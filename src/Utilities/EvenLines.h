#pragma once

#include "Type.h"

#include <QPlainTextDocumentLayout>

/// Lays out plain text in lines of the style's height. Qt's own layout sets them as close as the font allows.
class EvenLines : public QPlainTextDocumentLayout
{
    Q_OBJECT

public:
    EvenLines(QTextDocument* document, const Type::Style& style)
        : QPlainTextDocumentLayout(document), style_(style)
    { }

    QRectF blockBoundingRect(const QTextBlock& block) const override;

private:
    Type::Style style_;
};
