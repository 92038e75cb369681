#include "EmailAddress.h"

#include "CharacterCount.h"

#include <QStringList>

bool isValidEmail(const QString& text)
{
    const QStringList pieces = text.split(u'@', Qt::SkipEmptyParts);
    return pieces.size() == 2 && pieces.at(1).contains(u'.') && characterCount(text) > 4;
}
