#pragma once

#include "JSONObject.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>

/// The base of a row in a table of cases: the name under which the case is reported.
struct Named
{
    std::string name;

    friend std::ostream& operator<<(std::ostream& out, const Named& row) { return out << row.name; }
};

/// Names the cases of a table whose rows derive from Named.
struct RowName
{
    template <typename Row>
    std::string operator()(const testing::TestParamInfo<Row>& info) const
    {
        return info.param.name;
    }
};

/// The object that a text of JSON describes; the text of a test is always one.
inline JSONObject jsonObject(const QByteArray& text)
{
    const auto value = JSONValue::parse(text);
    const auto object = value ? value->object() : std::nullopt;
    if (!object)
        qFatal("no JSON object: %s", text.constData());
    return *object;
}

// What GoogleTest shows of Qt's types when an expectation fails.
inline void PrintTo(const QString& text, std::ostream* out)
{
    *out << '"' << text.toStdString() << '"';
}

inline void PrintTo(const QByteArray& bytes, std::ostream* out)
{
    *out << '"' << bytes.toStdString() << '"';
}
