#include "SettingsDefaults.h"

#include <QDir>
#include <QFileInfo>
#include <QSettings>
#include <QTemporaryFile>

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 largestFile = 1024 * 1024;

/// Where Qt keeps the preferences of this organisation and application.
QString standardFile()
{
    return QSettings(QSettings::NativeFormat, QSettings::UserScope, u"Quorvel"_s, u"Quorvel"_s).fileName();
}

/// Waits until the file, or the folder with its entries, is on the disk itself.
void syncToDisk(const QString& path)
{
    const int descriptor = open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0)
        return;
    fsync(descriptor);
    close(descriptor);
}

bool moveInPlace(const QString& from, const QString& to)
{
    return std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0;
}

/// Makes the folder if it is missing; nobody but the user may look into it.
void ensurePrivateFolder(const QString& path)
{
    QDir().mkpath(path);
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

/// An empty file of an unused name beside `file`, for its owner alone.
QString privateSibling(const QString& file)
{
    QTemporaryFile sibling(file + u".XXXXXX"_s);
    sibling.setAutoRemove(false);
    return sibling.open() ? sibling.fileName() : QString();
}

} // namespace

SettingsDefaults::SettingsDefaults() : SettingsDefaults(standardFile()) { }

SettingsDefaults::SettingsDefaults(QString file) : file_(std::move(file)), values_(read(file_)) { }

SettingsDefaults::Values SettingsDefaults::read(const QString& file)
{
    const QFileInfo info(file);
    if (!info.isFile() || info.size() > largestFile)
        return {};
    const QSettings settings(file, QSettings::IniFormat);
    Values values;
    for (const QString& key : settings.allKeys())
        values.insert(key, settings.value(key));
    return values;
}

std::optional<QByteArray> SettingsDefaults::data(const QString& key) const
{
    const QVariant value = values_.value(key);
    return value.typeId() == QMetaType::QByteArray ? std::optional(value.toByteArray()) : std::nullopt;
}

std::optional<QString> SettingsDefaults::string(const QString& key) const
{
    const QVariant value = values_.value(key);
    return value.typeId() == QMetaType::QString ? std::optional(value.toString()) : std::nullopt;
}

void SettingsDefaults::setData(const QString& key, const QByteArray& value)
{
    values_.insert(key, value);
    save();
}

void SettingsDefaults::setString(const QString& key, const QString& value)
{
    values_.insert(key, value);
    save();
}

void SettingsDefaults::remove(const QString& key)
{
    if (values_.remove(key) > 0)
        save();
}

void SettingsDefaults::save()
{
    const QString folder = QFileInfo(file_).path();
    ensurePrivateFolder(folder);
    const QString fresh = privateSibling(file_);
    if (fresh.isEmpty())
        return;
    {
        QSettings settings(fresh, QSettings::IniFormat);
        // In place, so that the file keeps the permissions it was made with.
        settings.setAtomicSyncRequired(false);
        for (const auto& [key, value] : values_.asKeyValueRange())
            settings.setValue(key, value);
        settings.sync();
    }
    QFile::setPermissions(fresh, QFile::ReadOwner | QFile::WriteOwner);
    syncToDisk(fresh);
    // On a full disk the write reports success and leaves a short file, so only what reads back counts.
    if (read(fresh) == values_ && moveInPlace(fresh, file_))
        syncToDisk(folder);
    else
        QFile::remove(fresh);
}
