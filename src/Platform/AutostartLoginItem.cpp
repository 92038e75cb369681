#include "AutostartLoginItem.h"

#include "DesktopEntry.h"
#include "DiskFile.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 largestEntry = 1024 * 1024;

AutostartLoginItem::Folders sessionFolders()
{
    const auto kind = QStandardPaths::GenericConfigLocation;
    QStringList folders = QStandardPaths::standardLocations(kind);
    const QString user = QStandardPaths::writableLocation(kind);
    folders.removeAll(user);
    return {user, folders};
}

bool canBeStarted(const QByteArray& program)
{
    const QString name = QFile::decodeName(program);
    const QFileInfo file(name);
    return file.isAbsolute() ? file.isFile() && file.isExecutable()
                             : !QStandardPaths::findExecutable(name).isEmpty();
}

/// Whether the desktop will start what this entry says; nothing when there is no such file.
std::optional<bool> isStarted(const QString& path)
{
    // Anything but a file is no entry, and opening some of them would wait for ever.
    if (!QFileInfo(path).isFile())
        return std::nullopt;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const DesktopEntry::Keys keys = DesktopEntry::read(file.read(largestEntry));
    const QByteArray required = DesktopEntry::unescaped(keys.value("TryExec"));
    return !keys.value("Exec").isEmpty() && !DesktopEntry::isTrue(keys.value("Hidden"))
        && !DesktopEntry::isFalse(keys.value("X-GNOME-Autostart-enabled"))
        && (required.isEmpty() || canBeStarted(required));
}

/// The format forbids an equals sign in the path of a program; desktops disagree about control characters,
/// and some find no program with a percent sign in its path, however it is written.
bool canBeNamed(const QByteArray& program)
{
    return std::none_of(program.begin(), program.end(),
        [](char letter) { return letter == '=' || letter == '%' || quint8(letter) < ' '; });
}

DesktopEntry::Keys entryOf(const QString& id, const QByteArray& program)
{
    return {
        {"Type", "Application"},
        {"Name", "Quorvel"},
        {"Comment", "Book remote notary sessions and follow them from the status menu"},
        {"Icon", id.toUtf8()},
        {"TryExec", DesktopEntry::escaped(program)},
        {"Exec", DesktopEntry::escaped(DesktopEntry::quoted(program)) + " --background"},
        {"X-GNOME-Autostart-enabled", "true"},
    };
}

} // namespace

AutostartLoginItem::AutostartLoginItem(const QString& id)
    : AutostartLoginItem(id, QCoreApplication::applicationFilePath(), sessionFolders())
{ }

AutostartLoginItem::AutostartLoginItem(QString id, QString program, const Folders& configuration)
    : id_(std::move(id)), program_(std::move(program))
{
    const auto entryIn
        = [this](const QString& folder) { return folder + u"/autostart/"_s + id_ + u".desktop"_s; };
    ownEntry_ = entryIn(configuration.user);
    for (const QString& folder : configuration.system)
        systemEntries_ += entryIn(folder);
}

bool AutostartLoginItem::isStartedForAll() const
{
    for (const QString& entry : systemEntries_) {
        if (const std::optional<bool> started = isStarted(entry))
            return *started;
    }
    return false;
}

bool AutostartLoginItem::isEnabled() const
{
    const std::optional<bool> own = isStarted(ownEntry_);
    return own ? *own : isStartedForAll();
}

bool AutostartLoginItem::registerItem()
{
    const QByteArray program = QFile::encodeName(program_);
    return canBeStarted(program) && canBeNamed(program)
        && DiskFile::replace(ownEntry_, DesktopEntry::write(entryOf(id_, program))) && isEnabled();
}

bool AutostartLoginItem::unregisterItem()
{
    if (isStartedForAll()) {
        // Without an entry of the user's own this one would show through.
        DesktopEntry::Keys keys = entryOf(id_, QFile::encodeName(program_));
        keys.insert("Hidden", "true");
        return DiskFile::replace(ownEntry_, DesktopEntry::write(keys)) && !isEnabled();
    }
    QFile::remove(ownEntry_);
    return !isEnabled();
}
