#pragma once

#include "RequestBody.h"

#include <QList>
#include <QString>

#include <utility>

/// One file part of a form. Its bytes are read from disk while they are sent.
struct MultipartFile
{
    QString fieldName;
    QString fileName; ///< as sent in the part's header; only line ends are escaped, as %0D and %0A
    QString mimeType;
    RequestBody::File data;
};

using FormFields = QList<std::pair<QString, QString>>;

/// The body of a multipart form: the fields in order, then the files in order, then the closing delimiter.
RequestBody makeMultipartBody(
    const QString& boundary, const FormFields& fields, const QList<MultipartFile>& files);
