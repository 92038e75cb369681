#include "Sessions/MessagePieces.h"

/// Where a piece may end that begins at `from` and must not be longer: behind the last line break in it, or
/// else behind the last blank, or else anywhere but within a surrogate pair.
static qsizetype pieceEnd(QStringView text, qsizetype from, qsizetype longest)
{
    const qsizetype most = from + longest;
    if (most >= text.size())
        return text.size();
    const QStringView piece = text.sliced(from, longest);
    if (const qsizetype lineBreak = piece.lastIndexOf(u'\n'); lineBreak >= 0)
        return from + lineBreak + 1;
    if (const qsizetype blank = piece.lastIndexOf(u' '); blank >= 0)
        return from + blank + 1;
    const bool isInPair = text.at(most - 1).isHighSurrogate() && text.at(most).isLowSurrogate();
    return isInPair && longest > 1 ? most - 1 : most;
}

QList<TextPiece> textPieces(const QString& text, qsizetype longest)
{
    QList<TextPiece> pieces;
    qsizetype from = 0;
    do {
        const qsizetype end = pieceEnd(text, from, longest);
        const bool endsLine = end < text.size() && end > from && text.at(end - 1) == u'\n';
        const qsizetype size = end - from - (endsLine ? 1 : 0);
        const auto lineBreaks = QStringView(text).sliced(from, size).count(u'\n');
        pieces.append({from, size, static_cast<int>(lineBreaks)});
        from = end;
    } while (from < text.size());
    return pieces;
}
