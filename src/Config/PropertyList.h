#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// Looks up texts in property lists: in binary ones, and in XML ones in UTF-8 or UTF-16, with or without a
/// byte order mark. No bytes, however malformed, do more harm than to be no list.
namespace PropertyList {

/// A larger list is refused: the parser's time grows with the square of some inputs.
inline constexpr qint64 maximumSize = 65'536;

/// Whether the bytes are a list with a dictionary at its root.
bool isDictionary(const QByteArray& list);

/// The text under a key of the dictionary at the list's root. Nothing when the bytes are no such list, or
/// when the key holds another type or an empty text.
std::optional<QString> text(const QByteArray& list, const QString& key);

} // namespace PropertyList
