#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QList>
#include <QString>

#include <optional>

class JSONObject;

/// Any JSON value of an answer. Cheap to copy; reading it never fails.
class JSONValue
{
public:
    JSONValue() = default;

    /// \returns nothing when the bytes are not one whole JSON document with an object or a list at its top,
    /// or
    ///          when it would cost too much memory (JSONScan).
    static std::optional<JSONValue> parse(const QByteArray& bytes);

    /// What an empty answer stands for.
    static JSONValue emptyObject() { return JSONValue(QJsonObject()); }

    bool isNull() const { return value_.isNull() || value_.isUndefined(); }
    bool isString() const;
    bool isObject() const { return value_.isObject(); }

    /// The text of a string value as received; empty for every other type.
    QString string() const;
    std::optional<JSONObject> object() const;
    /// The elements when the value is a list whose every element is an object; an empty list qualifies.
    std::optional<QList<JSONObject>> objects() const;
    /// The elements when the value is a list whose every element is a string.
    std::optional<QList<QString>> strings() const;
    /// The value in its natural textual form: a string as it is, an integer as decimal digits however
    /// many, a fraction in the shortest form that reads back the same, "true" or "false", a list or object as
    /// compact JSON.
    QString rendered() const;

private:
    friend class JSONObject;
    explicit JSONValue(QJsonValue value) : value_(std::move(value)) { }

    QJsonValue value_;
};

/// A JSON object as the bridge returns it, read through accessors that tolerate loose data: numbers as text,
/// text as numbers, null as a word. No accessor fails, but for the one case that intValue() states.
///
/// A chain of keys is written from the outside in, the outermost key winning:
/// `raw.string(u"name"_s, raw.string(u"full_name"_s, u"Unnamed"_s))`.
class JSONObject
{
public:
    JSONObject() = default;
    explicit JSONObject(QJsonObject object) : object_(std::move(object)) { }

    /// The text under a key. Strings come as received, blanks at their ends included; other values as their
    /// rendering, trimmed. Absent, null, blank, and the words "null", "nil", "<null>", "(null)" in any case
    /// give the fallback.
    QString string(const QString& key, const QString& fallback = {}) const;
    /// The integer under a key: a number (a fraction is cut towards zero) or a text of decimal digits with an
    /// optional sign and nothing else. A number outside the 64-bit range ends the program.
    std::optional<qint64> intValue(const QString& key) const;
    /// True for true, for an integer other than zero, and for "1", "true", "yes", "on" in any case.
    bool boolValue(const QString& key) const;

    bool isEmpty() const { return object_.isEmpty(); }
    bool contains(const QString& key) const { return object_.contains(key); }
    QList<QString> keys() const { return object_.keys(); }
    JSONValue value(const QString& key) const { return JSONValue(object_.value(key)); }
    /// The inner object under a key, when there is one.
    std::optional<JSONObject> object(const QString& key) const { return value(key).object(); }

    /// A copy with one member set.
    JSONObject with(const QString& key, const JSONValue& value) const;

    bool operator==(const JSONObject&) const = default;

private:
    QJsonObject object_;
};
