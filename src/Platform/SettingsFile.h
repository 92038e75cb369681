#pragma once

#include <QMap>
#include <QString>
#include <QVariant>

/// The file of the preferences: read with suspicion, replaced whole or not at all.
namespace SettingsFile {

/// Byte arrays and texts by their keys.
using Values = QMap<QString, QVariant>;

/// Where QSettings keeps the preferences of this organisation and application.
QString standardPath();

/// What the file holds, without the keys and types that are never written here; nothing when it is missing,
/// damaged, larger than a mebibyte or no regular file.
Values read(const QString& path);

/// Puts a file with these values in the place of `path`, on the disk when this returns. The file, and the
/// folder around it, are then its owner's alone.
/// \returns whether that was done; if not, the old file is as it was
bool replace(const QString& path, const Values& values);

} // namespace SettingsFile
