#include "Screen/NewYorkTime.h"

#include <QLocale>
#include <QTimeZone>

using namespace Qt::StringLiterals;

static QDateTime inNewYork(const QDateTime& moment)
{
    static const QTimeZone zone("America/New_York");
    return moment.toTimeZone(zone);
}

QString NewYorkTime::dateText(const QDateTime& moment)
{
    return QLocale::c().toString(inNewYork(moment), u"yyyy-MM-dd"_s);
}

QString NewYorkTime::timeText(const QDateTime& moment)
{
    return QLocale::c().toString(inNewYork(moment), u"h:mm AP"_s);
}

QString NewYorkTime::besideLocal(const QDateTime& moment)
{
    const QDateTime here = moment.toLocalTime();
    const QDateTime there = inNewYork(moment);
    if (here.date() == there.date() && here.time() == there.time())
        return {};
    const QString format = here.date() == there.date() ? u"h:mm AP"_s : u"ddd, MMM d, h:mm AP"_s;
    return QLocale::c().toString(there, format) + u' ' + there.timeZoneAbbreviation() + u" in New York"_s;
}
