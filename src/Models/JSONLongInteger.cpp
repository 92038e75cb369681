#include "JSONLongInteger.h"

#include <QUuid>

#include <string_view>

using namespace Qt::StringLiterals;

namespace {

/// Of the smallest number that does not fit.
constexpr qsizetype fewestDigits = 19;

const QString& mark()
{
    static const QString made = u'\uFDD0' + QUuid::createUuid().toString(QUuid::Id128);
    return made;
}

bool isDigit(char byte)
{
    return byte >= '0' && byte <= '9';
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

/// Whether there are digits enough in a row anywhere. So many cover one of the places that are looked at.
bool mayHoldAny(const QByteArray& json)
{
    for (qsizetype at = fewestDigits - 1; at < json.size(); at += fewestDigits) {
        if (!isDigit(json[at]))
            continue;
        qsizetype begin = at;
        while (begin > 0 && isDigit(json[begin - 1]))
            --begin;
        qsizetype end = at;
        while (end < json.size() && isDigit(json[end]))
            ++end;
        if (end - begin >= fewestDigits)
            return true;
        at = end - 1;
    }
    return false;
}

/// Goes through a document from left to right and marks the numbers that are too long.
class Marking
{
public:
    explicit Marking(const QByteArray& json) : json_(json) { }

    QByteArray run()
    {
        while (at_ < json_.size()) {
            const char byte = json_[at_];
            if (byte == '"')
                at_ = endOfText();
            else if (isDigit(byte) || byte == '-')
                passNumber();
            else
                ++at_;
        }
        return result_ + json_.sliced(copied_);
    }

private:
    qsizetype endOfText() const
    {
        for (qsizetype end = at_ + 1; end < json_.size(); ++end) {
            if (json_[end] == '\\')
                ++end;
            else if (json_[end] == '"')
                return end + 1;
        }
        return json_.size();
    }

    void passNumber()
    {
        const qsizetype begin = at_;
        const qsizetype digits = json_[begin] == '-' ? begin + 1 : begin;
        qsizetype end = digits;
        while (end < json_.size() && isDigit(json_[end]))
            ++end;
        at_ = std::max(end, begin + 1);
        if (end - digits < fewestDigits || json_[digits] == '0' || !isWholeValue(begin, end))
            return;
        const QByteArray number = json_.sliced(begin, end - begin);
        if (fits(number))
            return;
        result_ += json_.sliced(copied_, begin - copied_) + '"' + mark().toUtf8() + number + '"';
        copied_ = end;
    }

    /// Whether nothing but the number stands where a value may stand. A part of a fraction, or the number in
    /// the place of a name, is left for the parser to judge.
    bool isWholeValue(qsizetype begin, qsizetype end) const
    {
        while (begin > 0 && isBlank(json_[begin - 1]))
            --begin;
        while (end < json_.size() && isBlank(json_[end]))
            ++end;
        return begin > 0 && isOneOf("[,:", json_[begin - 1]) && end < json_.size()
            && isOneOf(",]}", json_[end]);
    }

    const QByteArray& json_;
    QByteArray result_;
    qsizetype copied_ = 0; ///< up to here the document is in the result
    qsizetype at_ = 0;
};

} // namespace

QByteArray JSONLongInteger::marked(const QByteArray& json)
{
    return mayHoldAny(json) ? Marking(json).run() : json;
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
