#pragma once

#include "Http/Fields.h"
#include "People/Account.h"

#include <optional>
#include <string>

namespace bridge {

/// \throws Problem 422 naming the field when the password is shorter than 6 characters
void requireLongEnough(const std::string& password, const std::string& field);

/// Takes over the name and contact fields that the request has.
/// \throws Problem 422 when the name is empty or the e-mail address is none
void readContact(const Fields& fields, Account& account);

/// The password that an office form sets, trimmed, under either of its keys; none when it sets none.
/// \throws Problem 422 when it is too short
std::optional<std::string> readNewPassword(const Fields& fields);

} // namespace bridge
