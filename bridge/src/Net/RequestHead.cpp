#include "Net/RequestHead.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace bridge {

static constexpr std::size_t largestHead = 64 << 10;
static constexpr std::size_t largestLine = 8 << 10;
static constexpr std::size_t mostLines = 200;

static char lowered(char letter)
{
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

static bool isSameName(std::string_view one, std::string_view other)
{
    return std::equal(one.begin(), one.end(), other.begin(), other.end(),
        [](char left, char right) { return lowered(left) == lowered(right); });
}

static bool isDigit(char letter)
{
    return letter >= '0' && letter <= '9';
}

static bool isTokenLetter(char letter)
{
    return isDigit(letter) || (lowered(letter) >= 'a' && lowered(letter) <= 'z')
        || std::string_view("!#$%&'*+-.^_`|~").find(letter) != std::string_view::npos;
}

static std::string_view trimmedBlanks(std::string_view text)
{
    const auto first = text.find_first_not_of(" \t");
    return first == std::string_view::npos ? std::string_view()
                                           : text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

// The elements of a list that is parted by commas.
static std::vector<std::string_view> elementsOf(std::string_view list)
{
    std::vector<std::string_view> elements;
    for (std::size_t begin = 0; begin <= list.size();) {
        const std::size_t end = std::min(list.find(',', begin), list.size());
        elements.push_back(trimmedBlanks(list.substr(begin, end - begin)));
        begin = end + 1;
    }
    return elements;
}

// Whether "gzip;q=0.5" lets gzip be used: it is named, and not with a weight of nothing.
static bool acceptsGzip(std::string_view element)
{
    const std::size_t semicolon = std::min(element.find(';'), element.size());
    if (!isSameName(trimmedBlanks(element.substr(0, semicolon)), "gzip"))
        return false;
    const std::string_view weight = element.substr(semicolon);
    return weight.empty() || weight.find_first_of("123456789") != std::string_view::npos;
}

static bool hasElement(const std::vector<std::string>& values, bool (*fits)(std::string_view))
{
    return std::any_of(values.begin(), values.end(), [fits](const std::string& value) {
        const std::vector<std::string_view> elements = elementsOf(value);
        return std::any_of(elements.begin(), elements.end(), fits);
    });
}

std::optional<RequestHead> RequestHead::parse(std::string_view text)
{
    RequestHead head;
    bool isFirst = true;
    for (;;) {
        const std::size_t end = text.find("\r\n");
        if (end == std::string_view::npos)
            return std::nullopt;
        const std::string_view line = text.substr(0, end);
        text.remove_prefix(end + 2);
        if (line.empty())
            break;
        if (!(isFirst ? head.readFirstLine(line) : head.readField(line)))
            return std::nullopt;
        isFirst = false;
    }
    if (isFirst || !text.empty() || !head.readFraming())
        return std::nullopt;
    return head;
}

bool RequestHead::readFirstLine(std::string_view line)
{
    constexpr std::array<std::string_view, 7> methods{
        "GET", "HEAD", "POST", "PUT", "PATCH", "DELETE", "OPTIONS"};
    const std::size_t first = line.find(' ');
    const std::size_t last = line.rfind(' ');
    if (first == last)
        return false;
    method_ = line.substr(0, first);
    target_ = line.substr(first + 1, last - first - 1);
    version_ = line.substr(last + 1);
    return std::find(methods.begin(), methods.end(), method_) != methods.end() && !target_.empty()
        && target_.find_first_of(" \t") == std::string::npos
        && (version_ == "HTTP/1.0" || version_ == "HTTP/1.1");
}

bool RequestHead::readField(std::string_view line)
{
    // A name ends at its colon: a blank before it, or at the begin of a line that continues the one above, is
    // no letter of a name.
    const std::size_t colon = line.find(':');
    const std::string_view name = line.substr(0, colon);
    if (colon == std::string_view::npos || name.empty()
        || !std::all_of(name.begin(), name.end(), isTokenLetter))
        return false;
    fields_.emplace_back(name, trimmedBlanks(line.substr(colon + 1)));
    return true;
}

bool RequestHead::readFraming()
{
    const std::vector<std::string> lengths = valuesOf("Content-Length");
    const std::vector<std::string> codings = valuesOf("Transfer-Encoding");
    if (lengths.size() + codings.size() > 1 || valuesOf("Host").size() > 1)
        return false;
    if (!codings.empty()) {
        // The library takes a body in chunks for none where it is to delete something.
        if (version_ == "HTTP/1.0" || method_ == "DELETE" || !isSameName(codings.front(), "chunked"))
            return false;
        bodyLength_.reset();
    }
    if (!lengths.empty()) {
        const std::string& text = lengths.front();
        const char* const end = text.data() + text.size();
        std::uint64_t length = 0;
        if (!std::all_of(text.begin(), text.end(), isDigit))
            return false;
        const auto [stop, error] = std::from_chars(text.data(), end, length);
        if (error != std::errc() || stop != end)
            return false;
        bodyLength_ = length;
    }
    awaitsContinue_ = version_ == "HTTP/1.1" && hasElement(valuesOf("Expect"), [](std::string_view one) {
        return isSameName(one, "100-continue");
    });
    return true;
}

std::vector<std::string> RequestHead::valuesOf(std::string_view name) const
{
    std::vector<std::string> values;
    for (const Field& field : fields_) {
        if (isSameName(field.first, name))
            values.push_back(field.second);
    }
    return values;
}

static void write(std::string& head, std::string_view name, std::string_view value)
{
    head.append(name).append(": ");
    // The library decodes what looks percent-encoded.
    for (const char letter : value) {
        if (letter == '%')
            head += "%25";
        else
            head += letter;
    }
    head += "\r\n";
}

std::string RequestHead::forLibrary() const
{
    constexpr std::array<std::string_view, 10> written{"Content-Length", "Transfer-Encoding", "Expect",
        "Connection", "Accept-Encoding", "Content-Type", "Range", receivedContentType, receivedRange,
        receivedInChunks};
    std::string head = method_ + ' ' + target_ + ' ' + version_ + "\r\n";
    for (const auto& [name, value] : fields_) {
        const auto isThis = [&name = name](std::string_view one) { return isSameName(one, name); };
        if (std::none_of(written.begin(), written.end(), isThis))
            write(head, name, value);
    }

    if (bodyLength_.value_or(0) > 0)
        write(head, "Content-Length", std::to_string(*bodyLength_));
    if (!bodyLength_)
        write(head, receivedInChunks, "yes");
    const std::vector<std::string> connection = valuesOf("Connection");
    if (hasElement(connection, [](std::string_view one) { return isSameName(one, "close"); }))
        write(head, "Connection", "close");
    else if (hasElement(connection, [](std::string_view one) { return isSameName(one, "keep-alive"); }))
        write(head, "Connection", "Keep-Alive");
    if (hasElement(valuesOf("Accept-Encoding"), acceptsGzip))
        write(head, "Accept-Encoding", "gzip");
    const std::vector<std::string> types = valuesOf("Content-Type");
    if (!types.empty())
        write(head, receivedContentType, types.front());
    // Nobody has said what a range means for another method, nor, without versions of files, since when a
    // range is wanted; several of them are not worth the work.
    const std::vector<std::string> ranges = valuesOf("Range");
    if (method_ == "GET" && ranges.size() == 1 && valuesOf("If-Range").empty())
        write(head, receivedRange, ranges.front());
    return head + "\r\n";
}

HeadReader::State HeadReader::take(char byte)
{
    const auto value = static_cast<unsigned char>(byte);
    const bool isAfterReturn = !text_.empty() && text_.back() == '\r';
    const bool isControl = (value < 0x20 && byte != '\t' && byte != '\r' && byte != '\n') || value == 0x7f;
    text_ += byte;
    if (isControl || isAfterReturn != (byte == '\n') || text_.size() > largestHead
        || text_.size() - lineBegin_ > largestLine)
        return State::Refused;
    if (byte != '\n')
        return State::Incomplete;
    const bool isEmptyLine = text_.size() - lineBegin_ == 2;
    lineBegin_ = text_.size();
    if (isEmptyLine)
        return lines_ > 0 ? State::Complete : State::Refused;
    return ++lines_ <= mostLines ? State::Incomplete : State::Refused;
}

} // namespace bridge
