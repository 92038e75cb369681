#include "Http/Fields.h"

#include "Http/Problem.h"

#include <algorithm>
#include <charconv>

namespace bridge {

static std::string textOf(const nlohmann::json& value)
{
    if (value.is_string())
        return cleaned(value.get_ref<const std::string&>());
    if (value.is_number() || value.is_boolean())
        return value.dump();
    return {};
}

std::string shortEnough(const std::string& field, const std::string& text, std::size_t most)
{
    if (text.size() > most && characterCount(text) > most)
        throw invalidField(field, "Please shorten this to " + std::to_string(most) + " characters.");
    return text;
}

Fields::Fields(nlohmann::json object)
    : object_(object.is_object() ? std::move(object) : nlohmann::json::object())
{ }

bool Fields::has(const std::string& key) const
{
    return object_.contains(key);
}

std::string Fields::text(const std::string& key, std::size_t most) const
{
    const auto found = object_.find(key);
    return found == object_.end() ? std::string() : shortEnough(key, trimmed(textOf(*found)), most);
}

std::string Fields::untrimmedText(const std::string& key) const
{
    const auto found = object_.find(key);
    return found == object_.end() ? std::string() : shortEnough(key, textOf(*found), shortText);
}

std::string Fields::firstText(std::initializer_list<std::string> keys) const
{
    for (const std::string& key : keys) {
        if (std::string value = text(key); !value.empty())
            return value;
    }
    return {};
}

void Fields::take(std::initializer_list<std::string> keys, std::string& target, std::size_t most) const
{
    for (const std::string& key : keys) {
        if (has(key)) {
            target = text(key, most);
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
        [&key](const nlohmann::json& value) { return shortEnough(key, trimmed(textOf(value)), shortText); });
    return result;
}

Fields Fields::inner(const std::string& key) const
{
    const auto found = object_.find(key);
    return Fields(found == object_.end() ? nlohmann::json() : *found);
}

} // namespace bridge
