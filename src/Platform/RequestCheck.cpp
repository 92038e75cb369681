#include "RequestCheck.h"

#include <algorithm>

using namespace Qt::StringLiterals;

/// The characters of method and header names.
static bool isToken(const QByteArray& text)
{
    static const QByteArrayView marks("!#$%&'*+-.^_`|~");
    return !text.isEmpty() && std::all_of(text.begin(), text.end(), [](char letter) {
        const bool isDigit = letter >= '0' && letter <= '9';
        const bool isLetter = (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z');
        return isDigit || isLetter || marks.contains(letter);
    });
}

static bool isSafeHeader(const Request::Header& header)
{
    const bool isOneLine
        = !header.value.contains('\r') && !header.value.contains('\n') && !header.value.contains('\0');
    return isToken(header.name) && isOneLine;
}

std::optional<TransportError::Code> refusalOf(const Request& request)
{
    using Code = TransportError::Code;
    const QUrl& url = request.url;
    if (!url.isValid() || url.isRelative())
        return Code::BadURL;
    if (url.scheme() != "http"_L1 && url.scheme() != "https"_L1)
        return Code::UnsupportedURL;
    if (url.host().isEmpty() || !url.userInfo().isEmpty() || !isToken(request.method)
        || !std::all_of(request.headers.begin(), request.headers.end(), isSafeHeader))
        return Code::BadURL;
    return std::nullopt;
}
