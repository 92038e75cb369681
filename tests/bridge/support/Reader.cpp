#include "support/Reader.h"

#include <algorithm>
#include <regex>

namespace reader {

static std::string usable(const Json& value)
{
    if (value.is_null())
        return {};
    const std::string shown = value.is_string() ? value.get<std::string>() : value.dump();
    static const std::regex nothing(R"(\s*(<null>|null|nil|\(null\))?\s*)", std::regex::icase);
    return std::regex_match(shown, nothing) ? std::string() : shown;
}

std::string text(const Json& object, const std::vector<std::string>& keys, const std::string& fallback)
{
    for (const std::string& key : keys) {
        const auto found = object.find(key);
        if (found != object.end() && !usable(*found).empty())
            return usable(*found);
    }
    return fallback;
}

std::optional<long long> number(const Json& object, const std::vector<std::string>& keys)
{
    static const std::regex digits(R"([+-]?[0-9]+)");
    for (const std::string& key : keys) {
        const auto found = object.find(key);
        if (found == object.end())
            continue;
        if (found->is_number())
            return found->get<long long>();
        if (found->is_string() && std::regex_match(found->get<std::string>(), digits))
            return std::stoll(found->get<std::string>());
    }
    return std::nullopt;
}

bool flag(const Json& object, const std::string& key)
{
    const auto found = object.find(key);
    if (found == object.end())
        return false;
    if (found->is_boolean())
        return found->get<bool>();
    if (found->is_number())
        return found->get<long long>() != 0;
    static const std::regex yes("1|true|yes|on", std::regex::icase);
    return found->is_string() && std::regex_match(found->get<std::string>(), yes);
}

static bool isListOfObjects(const Json& value)
{
    return value.is_array()
        && std::all_of(value.begin(), value.end(), [](const Json& element) { return element.is_object(); });
}

std::vector<Json> list(const Json& answer)
{
    if (isListOfObjects(answer))
        return answer;
    for (const char* key : {"data", "sessions", "messages", "documents", "uploads", "records", "users",
             "notaries", "clients", "assignments", "open_calls"}) {
        if (answer.is_object() && answer.contains(key) && isListOfObjects(answer[key]))
            return answer[key];
    }
    return {};
}

Json object(const Json& answer)
{
    for (const char* key : {"data", "session", "user"}) {
        if (answer.contains(key) && answer[key].is_object())
            return answer[key];
    }
    return answer;
}

std::vector<std::string> signerNames(const Json& record)
{
    std::vector<std::string> names;
    if (record.contains("signer_names")) {
        names = record["signer_names"].get<std::vector<std::string>>();
    } else if (record.contains("signers")) {
        for (const Json& signer : record["signers"])
            names.push_back(text(signer, {"name", "full_name"}));
    } else {
        names.push_back(text(record, {"signer_name", "contact_name"}));
    }
    return names;
}

Json withId(const std::vector<Json>& records, const std::vector<std::string>& keys, long long id)
{
    for (const Json& record : records) {
        if (number(record, keys) == id)
            return record;
    }
    return nullptr;
}

} // namespace reader
