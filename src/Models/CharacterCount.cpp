#include "CharacterCount.h"

#include <QTextBoundaryFinder>

int characterCount(const QString& text)
{
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    int count = 0;
    while (finder.toNextBoundary() >= 0)
        ++count;
    return count;
}
