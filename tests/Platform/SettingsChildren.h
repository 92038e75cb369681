#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// What this program does when it runs itself as another process, one that may be killed or confined.
constexpr const char* childOption = "--child";

/// Results of a child beside 0, all well.
constexpr int childFailed = 1;
constexpr int childCannot = 77; ///< the system does not allow what the child needs

/// \param arguments  one of
///     "save FILE MICROSECONDS": saves one numbered record after another, writes each number to its output
///     once saved, and is killed after so long;
///     "full-disk FOLDER": saves on a disk of its own, mounted on the folder, with little room left;
///     "short-files FOLDER": saves where no file may become longer than a page.
int runSettingsChild(int count, char** arguments);

/// A record that shows whether it is whole, of a size that varies with its number.
QByteArray numberedRecord(int number);
/// The number of a whole record.
std::optional<int> numberOf(const QByteArray& record);

inline QString recordKey()
{
    return QStringLiteral("QuorvelMac.authUser");
}
