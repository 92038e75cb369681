#pragma once

#include "support/Api.h"

#include <optional>

/// Reads answers by the rules that clients follow (see docs/bridge.md), so that a test says what a record
/// means and not how this record happened to be spelled.
namespace reader {

/// The first of the keys that has a usable text: neither missing, null, blank nor a word for null.
std::string text(const Json& object, const std::vector<std::string>& keys, const std::string& fallback = {});

/// A number, or decimal digits with an optional sign.
std::optional<long long> number(const Json& object, const std::vector<std::string>& keys);

/// true, a number other than 0, "1", "true", "yes" or "on".
bool flag(const Json& object, const std::string& key);

/// The first list of objects: the answer itself, or what is under one of the known keys.
std::vector<Json> list(const Json& answer);

/// What is under "data", "session" or "user", else the answer itself.
Json object(const Json& answer);

std::vector<std::string> signerNames(const Json& record);

/// The one with this id under one of the keys; null when there is none.
Json withId(const std::vector<Json>& records, const std::vector<std::string>& keys, long long id);

} // namespace reader
