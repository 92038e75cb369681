#include "Http/ByteRange.h"

#include "Text.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <optional>
#include <string_view>

namespace bridge {

// A number too large for any file is as good as the largest; what is no number is none.
static std::optional<std::uint64_t> readNumber(std::string_view text)
{
    if (text.empty() || text.find_first_not_of("0123456789") != std::string_view::npos)
        return std::nullopt;
    std::uint64_t number = 0;
    const bool fits = std::from_chars(text.data(), text.data() + text.size(), number).ec == std::errc();
    return fits ? number : std::numeric_limits<std::uint64_t>::max();
}

ByteRange readRange(const std::string& text, std::uint64_t size)
{
    constexpr std::string_view unit = "bytes=";
    const ByteRange whole{ByteRange::Kind::Whole, 0, 0};
    const ByteRange unsatisfiable{ByteRange::Kind::Unsatisfiable, 0, 0};
    if (lowerCased(text).rfind(unit, 0) != 0)
        return whole;
    const std::string_view range = std::string_view(text).substr(unit.size());
    const std::size_t dash = range.find('-');
    if (dash == std::string_view::npos)
        return whole;

    const std::string_view firstText = range.substr(0, dash);
    const std::string_view lastText = range.substr(dash + 1);
    const std::optional<std::uint64_t> first = readNumber(firstText);
    const std::optional<std::uint64_t> last = readNumber(lastText);
    if ((!first && !firstText.empty()) || (!last && !lastText.empty()) || (!first && !last))
        return whole;
    if (first && last && *last < *first)
        return whole;

    if (!first) {
        const std::uint64_t length = std::min(*last, size);
        return length == 0 ? unsatisfiable : ByteRange{ByteRange::Kind::Part, size - length, length};
    }
    if (*first >= size)
        return unsatisfiable;
    const std::uint64_t end = std::min(last.value_or(size - 1), size - 1);
    return {ByteRange::Kind::Part, *first, end - *first + 1};
}

} // namespace bridge
