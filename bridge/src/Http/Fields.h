#pragma once

#include <nlohmann/json.hpp>

#include <optional>
#include <string>
#include <vector>

namespace bridge {

/// Text without the white space around it.
std::string trimmed(const std::string& text);

/// ASCII letters in lower case; everything else as it is.
std::string lowerCased(std::string text);

/// One at sign between two non-empty pieces, a full stop in the second, more than four characters.
bool isEmailAddress(const std::string& text);

/// The fields of a request: a JSON object, read with the forgiveness that clients of several ages need.
class Fields
{
public:
    explicit Fields(nlohmann::json object);

    bool has(const std::string& key) const;

    /// Trimmed; a number or a flag as its text; empty for anything else or nothing.
    std::string text(const std::string& key) const;

    /// As text(), but with the white space of the request: for passwords.
    std::string untrimmedText(const std::string& key) const;

    /// The first of the keys whose text is not empty.
    std::string firstText(std::initializer_list<std::string> keys) const;

    /// Takes over the text of the first of the keys that is there, empty or not; without any the target
    /// stays.
    void take(std::initializer_list<std::string> keys, std::string& target) const;

    /// A whole number, written as a number or as text.
    std::optional<long long> number(const std::string& key) const;

    /// true, a number other than 0, or one of the words "1", "true", "yes", "on".
    bool flag(const std::string& key) const;

    /// The texts of an array, trimmed; empty when there is none.
    std::vector<std::string> texts(const std::string& key) const;

    /// An object inside; empty when there is none.
    Fields inner(const std::string& key) const;

private:
    nlohmann::json object_;
};

} // namespace bridge
