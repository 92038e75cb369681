#pragma once

#include <functional>
#include <string>

namespace bridge {

/// What a part of a form says about itself.
struct PartHead
{
    std::string name;
    bool isFile = false;
    /// Everything between `filename="` and the last quotation mark of the line: clients write names as they
    /// are, quotation marks and backslashes included.
    std::string fileName;
    std::string contentType;
};

/// Reads a multipart/form-data body as it comes in, in pieces of any size, and holds no more of it than a
/// part's head or a delimiter.
class MultipartReader
{
public:
    struct Events
    {
        std::function<void(const PartHead& head)> begin;
        std::function<void(const char* bytes, std::size_t size)> data;
        std::function<void()> end;
    };

    /// \throws Problem 400 without a usable boundary in the media type
    MultipartReader(const std::string& contentType, Events events);

    /// \throws Problem 400 when the bytes are no such form, and whatever the events throw
    void feed(const char* bytes, std::size_t size);

    /// True when the closing delimiter has come.
    bool isComplete() const { return state_ == State::Epilogue; }

private:
    enum class State
    {
        Preamble,
        Delimiter,
        Head,
        Body,
        Epilogue
    };

    bool readUpToDelimiter();
    bool readDelimiter();
    bool readHead();

    Events events_;
    std::string delimiter_;
    std::string buffer_;
    State state_ = State::Preamble;
};

} // namespace bridge
