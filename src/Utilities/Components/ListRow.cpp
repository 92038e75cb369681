#include "ListRow.h"

#include "StatusPill.h"

using namespace Qt::StringLiterals;

QString ListRow::spoken() const
{
    QStringList parts{title};
    parts += lines;
    parts += {meta, trailing, showsPill() ? StatusPill::wording(pill) : QString()};
    parts.removeAll(QString());
    return parts.join(u", "_s);
}
