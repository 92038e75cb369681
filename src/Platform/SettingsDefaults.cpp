#include "SettingsDefaults.h"

#include "SettingsFile.h"

#include <QFile>

SettingsDefaults::SettingsDefaults() : SettingsDefaults(SettingsFile::standardPath()) { }

SettingsDefaults::SettingsDefaults(QString file) : file_(std::move(file)), values_(SettingsFile::read(file_))
{ }

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
    isSaved_ = SettingsFile::replace(file_, values_);
}

void SettingsDefaults::setString(const QString& key, const QString& value)
{
    // The file holds UTF-8, in which half a surrogate pair has no form.
    values_.insert(key, QString::fromUtf8(value.toUtf8()));
    isSaved_ = SettingsFile::replace(file_, values_);
}

void SettingsDefaults::remove(const QString& key)
{
    if (values_.remove(key) == 0 && isSaved_)
        return;
    isSaved_ = SettingsFile::replace(file_, values_);
    // What is to be forgotten must not come back. Where there is no room beside the old file, its own will
    // do.
    if (!isSaved_ && QFile::remove(file_))
        isSaved_ = SettingsFile::replace(file_, values_);
}
