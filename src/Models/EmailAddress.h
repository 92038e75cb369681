#pragma once

#include <QString>

/// The one e-mail test of the program. The text is not trimmed. True when the at sign leaves exactly two
/// non-empty pieces, the second holds a full stop, and the whole has more than four characters, as
/// people count them.
bool isValidEmail(const QString& text);
