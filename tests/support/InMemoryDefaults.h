#pragma once

#include "UserDefaults.h"

#include <QHash>

#include <variant>

/// Preferences that last as long as the test. Writes are counted.
class InMemoryDefaults : public UserDefaults
{
public:
    std::optional<QByteArray> data(const QString& key) const override { return typed<QByteArray>(key); }
    std::optional<QString> string(const QString& key) const override { return typed<QString>(key); }

    void setData(const QString& key, const QByteArray& value) override { write(key, value); }
    void setString(const QString& key, const QString& value) override { write(key, value); }
    void remove(const QString& key) override { values_.remove(key); }

    QList<QString> keys() const { return values_.keys(); }
    /// How often a value was set under the key, whether it was new or not.
    int writes(const QString& key) const { return writes_.value(key); }

private:
    using Value = std::variant<QByteArray, QString>;

    template <typename Type>
    std::optional<Type> typed(const QString& key) const
    {
        const auto found = values_.constFind(key);
        const Type* value = found == values_.constEnd() ? nullptr : std::get_if<Type>(&*found);
        return value ? std::optional(*value) : std::nullopt;
    }

    void write(const QString& key, const Value& value)
    {
        values_.insert(key, value);
        ++writes_[key];
    }

    QHash<QString, Value> values_;
    QHash<QString, int> writes_;
};
