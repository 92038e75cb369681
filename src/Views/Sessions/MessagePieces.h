#pragma once

#include <QList>
#include <QString>

/// A part of a text.
struct TextPiece
{
    qsizetype from = 0;
    qsizetype size = 0;
    int lineBreaks = 0; ///< within the piece

    bool operator==(const TextPiece&) const = default;
};

/// Parts a text of any length into pieces that are laid out fast, at line breaks or blanks where there are
/// any. A line break between two pieces belongs to neither; nothing else is left out. At least one piece.
QList<TextPiece> textPieces(const QString& text, qsizetype longest);
