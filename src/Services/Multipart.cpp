#include "Multipart.h"

static const QByteArray lineEnd = QByteArrayLiteral("\r\n");

static QByteArray delimiter(const QByteArray& boundary)
{
    return "--" + boundary + lineEnd;
}

static QByteArray disposition(const QString& name)
{
    return "Content-Disposition: form-data; name=\"" + name.toUtf8() + '"';
}

RequestBody makeMultipartBody(
    const QString& boundary, const FormFields& fields, const QList<MultipartFile>& files)
{
    const QByteArray mark = boundary.toUtf8();
    QByteArray text;
    for (const auto& [name, value] : fields)
        text += delimiter(mark) + disposition(name) + lineEnd + lineEnd + value.toUtf8() + lineEnd;

    RequestBody body;
    for (const MultipartFile& file : files) {
        text += delimiter(mark) + disposition(file.fieldName) + "; filename=\"" + file.fileName.toUtf8() + '"'
            + lineEnd + "Content-Type: " + file.mimeType.toUtf8() + lineEnd + lineEnd;
        body.append(std::exchange(text, lineEnd));
        body.append(file.data);
    }
    body.append(text + "--" + mark + "--" + lineEnd);
    return body;
}
