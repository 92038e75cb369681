#pragma once

#include <QByteArray>
#include <QMap>

/// The format of the desktop's entries: lines of keys and values in groups.
namespace DesktopEntry {

using Keys = QMap<QByteArray, QByteArray>;

/// What the group "Desktop Entry" says, as it stands in the text; of a key's values the last one.
Keys read(const QByteArray& text);
/// An entry with this group alone.
QByteArray write(const Keys& keys);

/// Whether a value, as it stands in the text, says true.
bool isTrue(const QByteArray& value);
bool isFalse(const QByteArray& value);

/// A text as it stands as a value.
QByteArray escaped(const QByteArray& text);
/// The text that a value stands for.
QByteArray unescaped(const QByteArray& value);

/// An argument of a command line, so that it reaches the program as it is whatever it holds.
QByteArray quoted(const QByteArray& argument);

} // namespace DesktopEntry
