#pragma once

#include <QDebug>
#include <QJsonDocument>
#include <QJsonObject>
#include <QString>
#include <QUrl>

#include <optional>
#include <ostream>

// How a failed expectation shows the values of Qt: as text, not as a list of characters.

inline void PrintTo(const QString& text, std::ostream* out)
{
    *out << qUtf8Printable(QDebug::toString(text));
}

inline void PrintTo(const QUrl& url, std::ostream* out)
{
    *out << qUtf8Printable(url.toDisplayString());
}

inline void PrintTo(const QJsonObject& object, std::ostream* out)
{
    *out << QJsonDocument(object).toJson().constData();
}
