#include "Text.h"

#include <nlohmann/json.hpp>

#include <algorithm>

namespace bridge {

std::string trimmed(const std::string& text)
{
    constexpr const char* space = " \t\r\n\f\v";
    const auto first = text.find_first_not_of(space);
    if (first == std::string::npos)
        return {};
    return text.substr(first, text.find_last_not_of(space) - first + 1);
}

std::string lowerCased(std::string text)
{
    for (char& letter : text) {
        if (letter >= 'A' && letter <= 'Z')
            letter = static_cast<char>(letter - 'A' + 'a');
    }
    return text;
}

// The JSON library knows what is no UTF-8, and puts U+FFFD in its place.
static std::string validUtf8(const std::string& text)
{
    using Json = nlohmann::json;
    return Json::parse(Json(text).dump(-1, ' ', false, Json::error_handler_t::replace)).get<std::string>();
}

std::string cleaned(const std::string& text)
{
    const bool isPlain
        = std::all_of(text.begin(), text.end(), [](unsigned char byte) { return byte != 0 && byte < 0x80; });
    if (isPlain)
        return text;
    std::string clean = validUtf8(text);
    constexpr std::string_view replacement = "\xEF\xBF\xBD";
    for (auto nul = clean.find('\0'); nul != std::string::npos; nul = clean.find('\0', nul))
        clean.replace(nul, 1, replacement);
    return clean;
}

std::size_t characterCount(const std::string& text)
{
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(),
        [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0) != 0x80; }));
}

std::string printable(const std::string& text)
{
    static constexpr const char* digits = "0123456789abcdef";
    std::string shown;
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        if (byte >= 0x20 && byte < 0x7f)
            shown += character;
        else
            shown += std::string("\\x") + digits[byte >> 4] + digits[byte & 15];
    }
    return shown;
}

bool isEmailAddress(const std::string& text)
{
    const bool isOneWord = std::none_of(text.begin(), text.end(), [](unsigned char letter) {
        return letter <= ' ' || letter == 0x7f || letter == '<' || letter == '>';
    });
    const auto at = text.find('@');
    if (!isOneWord || text.size() <= 4 || at == 0 || at == std::string::npos)
        return false;
    const std::string domain = text.substr(at + 1);
    return domain.find('@') == std::string::npos && domain.find('.') != std::string::npos;
}

} // namespace bridge
