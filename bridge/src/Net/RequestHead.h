#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace bridge {

/// The head of a request: its first line and its header fields. It is read more strictly than the HTTP
/// library does, so that every reader on the way, a proxy in front included, sees the same request end at the
/// same place; the library then gets a head that is written afresh.
class RequestHead
{
public:
    /// Under these names operations find fields that the library would act upon by itself: it reads forms
    /// into memory, answers ranges wrongly, and would look for the framing of chunks. What a client sends
    /// under these names is dropped.
    static constexpr const char* receivedContentType = "X-Received-Content-Type";
    static constexpr const char* receivedRange = "X-Received-Range";
    static constexpr const char* receivedInChunks = "X-Received-In-Chunks";

    /// \param text  everything up to and with the empty line
    /// \returns nothing when the text is no head of HTTP/1.0 or 1.1 with a known method and clear framing
    static std::optional<RequestHead> parse(std::string_view text);

    /// The bytes that its body is stated to have; none when the body comes in chunks.
    std::optional<std::uint64_t> bodyLength() const { return bodyLength_; }

    /// The client holds its body back until it is told to go on.
    bool awaitsContinue() const { return awaitsContinue_; }

    /// What the HTTP library is given: nothing about the body, which it gets without framing, nothing that
    /// would make it compress with brotli (seconds of work for a long list), and no escape that it would
    /// undo.
    std::string forLibrary() const;

private:
    using Field = std::pair<std::string, std::string>;

    bool readFirstLine(std::string_view line);
    bool readField(std::string_view line);
    bool readFraming();
    std::vector<std::string> valuesOf(std::string_view name) const;

    std::string method_;
    std::string target_;
    std::string version_;
    std::vector<Field> fields_;
    std::optional<std::uint64_t> bodyLength_ = 0;
    bool awaitsContinue_ = false;
};

/// Gathers the bytes of a head as they come in and stops at the first that cannot belong to one.
class HeadReader
{
public:
    enum class State
    {
        Incomplete,
        Complete,
        Refused,
    };

    State take(char byte);
    const std::string& text() const { return text_; }

private:
    std::string text_;
    std::size_t lineBegin_ = 0;
    std::size_t lines_ = 0;
};

} // namespace bridge
