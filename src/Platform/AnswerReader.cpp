#include "AnswerReader.h"

#include <algorithm>

/// Room for all heads of an answer, interim ones included; real ones take a few hundred bytes.
static constexpr qint64 largestHead = 256 * 1024;

bool AnswerReader::fail(Flaw flaw)
{
    flaw_ = flaw;
    return false;
}

bool AnswerReader::takeHeaderLine(QByteArrayView line)
{
    headBytes_ += line.size();
    if (headBytes_ > largestHead)
        return fail(Flaw::Broken);
    if (line.startsWith("HTTP/")) {
        hasWholeHead_ = false;
        contentLength_.reset();
        return true;
    }
    const QByteArrayView text = line.trimmed();
    hasWholeHead_ = hasWholeHead_ || text.isEmpty();

    const qsizetype colon = text.indexOf(':');
    if (colon < 0)
        return true;
    const QByteArrayView name = text.first(colon).trimmed();
    const QByteArrayView value = text.sliced(colon + 1).trimmed();
    if (name.compare("content-length", Qt::CaseInsensitive) == 0)
        return takeContentLength(value);
    // Another coding would be undone while it arrives, at any ratio.
    if (name.compare("transfer-encoding", Qt::CaseInsensitive) == 0
        && value.compare("chunked", Qt::CaseInsensitive) != 0)
        return fail(Flaw::Broken);
    return true;
}

bool AnswerReader::takeContentLength(QByteArrayView value)
{
    const bool isNumber = !value.isEmpty()
        && std::all_of(value.begin(), value.end(), [](char digit) { return digit >= '0' && digit <= '9'; });
    if (!isNumber)
        return fail(Flaw::Broken);
    bool fits = false;
    const qint64 length = value.toByteArray().toLongLong(&fits);
    if (!fits || length > largestBody_)
        return fail(Flaw::TooLarge);
    if (contentLength_.value_or(length) != length)
        return fail(Flaw::Broken);
    contentLength_ = length;
    return true;
}

bool AnswerReader::takeBody(QByteArrayView bytes)
{
    if (body_.size() + bytes.size() > largestBody_)
        return fail(Flaw::TooLarge);
    body_.append(bytes);
    return true;
}
