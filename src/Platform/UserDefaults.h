#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// The user's preferences: a small persistent map that only this user may read. A change is on disk when the
/// call returns; when the disk refuses it, the old record stays on disk whole and the change lasts in memory
/// until the program ends. What is removed goes from the disk even when that is full, if need be with the
/// rest.
class UserDefaults
{
public:
    UserDefaults() = default;
    UserDefaults(const UserDefaults&) = delete;
    UserDefaults& operator=(const UserDefaults&) = delete;
    virtual ~UserDefaults() = default;

    /// Empty when the key is absent or holds something that is not of this type.
    virtual std::optional<QByteArray> data(const QString& key) const = 0;
    virtual std::optional<QString> string(const QString& key) const = 0;

    virtual void setData(const QString& key, const QByteArray& value) = 0;
    virtual void setString(const QString& key, const QString& value) = 0;
    virtual void remove(const QString& key) = 0;
};
