#include "JSONLongInteger.h"

#include <QUuid>

#include <string_view>

using namespace Qt::StringLiterals;

namespace {

const QString& mark()
{
    static const QString made = u'\uFDD0' + QUuid::createUuid().toString(QUuid::Id128);
    return made;
}

bool isOneOf(std::string_view bytes, char byte)
{
    return bytes.find(byte) != std::string_view::npos;
}

bool isBlank(char byte)
{
    return isOneOf(" \t\n\r", byte);
}

bool fits(const QByteArray& number)
{
    bool does = false;
    number.toLongLong(&does);
    return does;
}

/// Whether nothing but the number stands where a value may stand. One in the place of a name is left for the
/// parser to judge.
bool isWholeValue(const QByteArray& json, JSONScan::Span number)
{
    while (number.begin > 0 && isBlank(json[number.begin - 1]))
        --number.begin;
    while (number.end < json.size() && isBlank(json[number.end]))
        ++number.end;
    return number.begin > 0 && isOneOf("[,:", json[number.begin - 1]) && number.end < json.size()
        && isOneOf(",]}", json[number.end]);
}

} // namespace

QByteArray JSONLongInteger::marked(const QByteArray& json, const QList<JSONScan::Span>& candidates)
{
    QByteArray result;
    qsizetype copied = 0;
    for (const JSONScan::Span& span : candidates) {
        const QByteArray number = json.sliced(span.begin, span.end - span.begin);
        if (fits(number) || !isWholeValue(json, span))
            continue;
        result += json.sliced(copied, span.begin - copied) + '"' + mark().toUtf8() + number + '"';
        copied = span.end;
    }
    return copied == 0 ? json : result + json.sliced(copied);
}

QByteArray JSONLongInteger::unmarked(const QByteArray& compact)
{
    const QByteArray opening = '"' + mark().toUtf8();
    QByteArray result;
    qsizetype copied = 0;
    for (qsizetype at = compact.indexOf(opening); at >= 0; at = compact.indexOf(opening, copied)) {
        const qsizetype begin = at + opening.size();
        const qsizetype end = compact.indexOf('"', begin);
        result += compact.sliced(copied, at - copied) + compact.sliced(begin, end - begin);
        copied = end + 1;
    }
    return copied == 0 ? compact : result + compact.sliced(copied);
}

std::optional<QString> JSONLongInteger::digitsOf(const QString& text)
{
    return text.startsWith(mark()) ? std::optional(text.sliced(mark().size())) : std::nullopt;
}
