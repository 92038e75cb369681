#pragma once

#include "Models/PropertyLists.h"

#include <QDir>
#include <QFile>
#include <QString>

/// Lets the property list in a folder hold this API key, and no other one.
inline void storeApiKey(const QString& folder, const QString& key)
{
    const QByteArray list = PropertyLists::xml(
        "<dict><key>API_KEY</key><string>" + key.toHtmlEscaped().toUtf8() + "</string></dict>");
    QFile file(QDir(folder).filePath(QStringLiteral("GoogleService-Info.plist")));
    if (!file.open(QFile::WriteOnly) || file.write(list) != list.size())
        qFatal("the property list cannot be written");
}
