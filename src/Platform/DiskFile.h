#pragma once

#include <QString>

class QByteArray;

/// What QFile leaves to the system: changes to files that are whole and on the disk, or not made at all.
namespace DiskFile {

/// Waits until the file, or the folder with its entries, is on the disk itself.
bool sync(const QString& path);

/// Puts a file in the place of another one, if there is one, in one step.
bool rename(const QString& from, const QString& to);

/// Puts a file with this content, for its owner alone, in the place of `path`, on the disk when this returns.
/// Makes the folders around it.
/// \returns whether that was done; if not, what was there is as it was
bool replace(const QString& path, const QByteArray& content);

} // namespace DiskFile
