#include "Http/Fields.h"

#include <algorithm>
#include <charconv>

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

bool isEmailAddress(const std::string& text)
{
    const auto at = text.find('@');
    if (text.size() <= 4 || at == 0 || at == std::string::npos)
        return false;
    const std::string domain = text.substr(at + 1);
    return domain.find('@') == std::string::npos && domain.find('.') != std::string::npos;
}

static std::string textOf(const nlohmann::json& value)
{
    if (value.is_string())
        return value.get<std::string>();
    if (value.is_number() || value.is_boolean())
        return value.dump();
    return {};
}

Fields::Fields(nlohmann::json object)
    : object_(object.is_object() ? std::move(object) : nlohmann::json::object())
{ }

bool Fields::has(const std::string& key) const
{
    return object_.contains(key);
}

std::string Fields::text(const std::string& key) const
{
    return trimmed(untrimmedText(key));
}

std::string Fields::untrimmedText(const std::string& key) const
{
    const auto found = object_.find(key);
    return found == object_.end() ? std::string() : textOf(*found);
}

std::string Fields::firstText(std::initializer_list<std::string> keys) const
{
    for (const std::string& key : keys) {
        if (std::string value = text(key); !value.empty())
            return value;
    }
    return {};
}

void Fields::take(std::initializer_list<std::string> keys, std::string& target) const
{
    for (const std::string& key : keys) {
        if (has(key)) {
            target = text(key);
            return;
        }
    }
}

std::optional<long long> Fields::number(const std::string& key) const
{
    const std::string value = text(key);
    long long result = 0;
    const auto [stop, error] = std::from_chars(value.data(), value.data() + value.size(), result);
    if (error != std::errc() || stop != value.data() + value.size())
        return std::nullopt;
    return result;
}

bool Fields::flag(const std::string& key) const
{
    const std::string word = lowerCased(text(key));
    if (word == "true" || word == "yes" || word == "on")
        return true;
    return number(key).value_or(0) != 0;
}

std::vector<std::string> Fields::texts(const std::string& key) const
{
    std::vector<std::string> result;
    const auto found = object_.find(key);
    if (found == object_.end() || !found->is_array())
        return result;
    std::transform(found->begin(), found->end(), std::back_inserter(result),
        [](const nlohmann::json& value) { return trimmed(textOf(value)); });
    return result;
}

Fields Fields::inner(const std::string& key) const
{
    const auto found = object_.find(key);
    return Fields(found == object_.end() ? nlohmann::json() : *found);
}

} // namespace bridge
