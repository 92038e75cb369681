#pragma once

#include <string>

namespace bridge {

/// Text without the white space around it.
std::string trimmed(const std::string& text);

/// ASCII letters in lower case; everything else as it is.
std::string lowerCased(std::string text);

/// Text as this server keeps it: UTF-8 without the character U+0000, which ends a text for half of the
/// programs that handle it. That character, and bytes that are no UTF-8, become U+FFFD each.
std::string cleaned(const std::string& text);

/// How many characters UTF-8 text has.
std::size_t characterCount(const std::string& text);

/// Text of a request for a line of a log, which it can neither end nor rewrite: bytes that are no printable
/// ASCII character become "\xNN".
std::string printable(const std::string& text);

/// One at sign between two non-empty pieces, a full stop in the second, more than four characters, and none
/// of them a blank, a control character or an angle bracket, with which an address would name somebody else
/// where mail is sent.
bool isEmailAddress(const std::string& text);

} // namespace bridge
