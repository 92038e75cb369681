#pragma once

#include "Text.h"

#include <nlohmann/json.hpp>

#include <optional>
#include <string>
#include <vector>

namespace bridge {

/// The text, when it has no more characters than are allowed.
/// \throws Problem 422 naming the field
std::string shortEnough(const std::string& field, const std::string& text, std::size_t most);

/// The fields of a request: a JSON object, read with the forgiveness that clients of several ages need. Every
/// text that comes out of it is clean, and no longer than what is asked for is allowed to be.
class Fields
{
public:
    /// Characters in a name, an address, a word: the longest e-mail address has 254, the longest file name
    /// 255.
    static constexpr std::size_t shortText = 255;

    /// Characters in what people write to each other: several pages.
    static constexpr std::size_t longText = 20'000;

    explicit Fields(nlohmann::json object);

    bool has(const std::string& key) const;

    /// Trimmed; a number or a flag as its text; empty for anything else or nothing.
    /// \param most  characters
    /// \throws Problem 422 naming the key when it is longer
    std::string text(const std::string& key, std::size_t most = shortText) const;

    /// As text(), but with the white space of the request: for passwords.
    std::string untrimmedText(const std::string& key) const;

    /// The first of the keys whose text is not empty.
    std::string firstText(std::initializer_list<std::string> keys) const;

    /// Takes over the text of the first of the keys that is there, empty or not; without any the target
    /// stays.
    void take(
        std::initializer_list<std::string> keys, std::string& target, std::size_t most = shortText) const;

    /// A whole number, written as a number or as text.
    std::optional<long long> number(const std::string& key) const;

    /// true, a number other than 0, or one of the words "1", "true", "yes", "on".
    bool flag(const std::string& key) const;

    /// The texts of an array, trimmed and short; empty when there is none.
    std::vector<std::string> texts(const std::string& key) const;

    /// An object inside; empty when there is none.
    Fields inner(const std::string& key) const;

private:
    nlohmann::json object_;
};

} // namespace bridge
