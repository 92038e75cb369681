#include "Http/MultipartReader.h"

#include "Http/Problem.h"
#include "Text.h"

#include <algorithm>

namespace bridge {

static constexpr std::size_t largestHead = 16 << 10;
static constexpr std::size_t longestBoundary = 70;
static constexpr std::string_view lineEnd = "\r\n";

static Problem unreadable()
{
    return refusal(400, "The form could not be read.");
}

static std::string boundaryOf(const std::string& contentType)
{
    constexpr std::string_view key = "boundary=";
    const std::string lower = lowerCased(contentType);
    const auto start = lower.find(key);
    if (lower.compare(0, 20, "multipart/form-data;") != 0 || start == std::string::npos)
        throw unreadable();
    std::string boundary = contentType.substr(start + key.size());
    if (!boundary.empty() && boundary.front() == '"')
        boundary = boundary.substr(1, boundary.find('"', 1) - 1);
    else
        boundary = trimmed(boundary.substr(0, boundary.find(';')));
    if (boundary.empty() || boundary.size() > longestBoundary)
        throw unreadable();
    return boundary;
}

MultipartReader::MultipartReader(const std::string& contentType, Events events)
    : events_(std::move(events)), delimiter_("\r\n--" + boundaryOf(contentType))
      // The first delimiter may stand at the very beginning; the others begin with the end of a line.
      ,
      buffer_(lineEnd)
{ }

void MultipartReader::feed(const char* bytes, std::size_t size)
{
    if (state_ == State::Epilogue)
        return;
    buffer_.append(bytes, size);
    for (bool hasMoved = true; hasMoved;) {
        switch (state_) {
        case State::Preamble:
        case State::Body:
            hasMoved = readUpToDelimiter();
            break;
        case State::Delimiter:
            hasMoved = readDelimiter();
            break;
        case State::Head:
            hasMoved = readHead();
            break;
        case State::Epilogue:
            buffer_.clear();
            hasMoved = false;
            break;
        }
    }
}

// Passes data on, but for what may be the beginning of a delimiter.
bool MultipartReader::readUpToDelimiter()
{
    const auto found = buffer_.find(delimiter_);
    const bool isFound = found != std::string::npos;
    const std::size_t kept = delimiter_.size() - 1;
    const std::size_t count = isFound ? found : buffer_.size() > kept ? buffer_.size() - kept : 0;
    if (state_ == State::Body) {
        if (count > 0)
            events_.data(buffer_.data(), count);
        if (isFound)
            events_.end();
    }
    buffer_.erase(0, isFound ? found + delimiter_.size() : count);
    if (isFound)
        state_ = State::Delimiter;
    return isFound;
}

// After a delimiter comes the end of its line, or "--" after the last one.
bool MultipartReader::readDelimiter()
{
    if (buffer_.size() < 2)
        return false;
    if (buffer_.compare(0, 2, "--") == 0)
        state_ = State::Epilogue;
    else if (buffer_.compare(0, 2, lineEnd) == 0)
        state_ = State::Head;
    else
        throw unreadable();
    // An empty head is only a line end of its own, so the line end of the delimiter stays until then.
    if (state_ == State::Epilogue)
        buffer_.erase(0, 2);
    return true;
}

static std::string quoted(const std::string& text, std::size_t first, std::size_t last)
{
    return last > first ? text.substr(first, last - first) : std::string();
}

static void readDisposition(const std::string& line, PartHead& head)
{
    constexpr std::string_view nameKey = "name=\"";
    constexpr std::string_view fileKey = "\"; filename=\"";
    const auto name = line.find(nameKey);
    const auto last = line.rfind('"');
    if (name == std::string::npos || last < name + nameKey.size())
        throw unreadable();
    const std::size_t nameStart = name + nameKey.size();
    const auto file = line.find(fileKey, nameStart);
    head.isFile = file != std::string::npos;
    head.name = quoted(line, nameStart, head.isFile ? file : last);
    if (head.isFile)
        head.fileName = quoted(line, file + fileKey.size(), last);
}

bool MultipartReader::readHead()
{
    constexpr std::string_view headEnd = "\r\n\r\n";
    const auto end = buffer_.find(headEnd);
    if (end == std::string::npos) {
        if (buffer_.size() > largestHead)
            throw unreadable();
        return false;
    }
    PartHead head;
    bool hasDisposition = false;
    for (std::size_t start = lineEnd.size(); start < end;) {
        const std::size_t stop = std::min(buffer_.find(lineEnd, start), end);
        const std::string line = buffer_.substr(start, stop - start);
        const auto colon = line.find(':');
        const std::string key = lowerCased(line.substr(0, colon));
        if (key == "content-disposition") {
            readDisposition(line, head);
            hasDisposition = true;
        } else if (key == "content-type" && colon != std::string::npos) {
            head.contentType = trimmed(line.substr(colon + 1));
        }
        start = stop + lineEnd.size();
    }
    if (!hasDisposition)
        throw unreadable();
    buffer_.erase(0, end + headEnd.size());
    state_ = State::Body;
    events_.begin(head);
    return true;
}

} // namespace bridge
