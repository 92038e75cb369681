#include "Multipart.h"

static const QByteArray lineEnd = QByteArrayLiteral("\r\n");

static QByteArray delimiter(const QByteArray& boundary)
{
    return "--" + boundary + lineEnd;
}

/// A name as it stands in a header line, which a line end in it would end. All else is sent as it is.
static QByteArray onOneLine(const QString& name)
{
    return name.toUtf8().replace('\r', "%0D").replace('\n', "%0A");
}

static QByteArray disposition(const QString& name)
{
    return "Content-Disposition: form-data; name=\"" + onOneLine(name) + '"';
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
        text += delimiter(mark) + disposition(file.fieldName) + "; filename=\"" + onOneLine(file.fileName)
            + '"' + lineEnd + "Content-Type: " + file.mimeType.toUtf8() + lineEnd + lineEnd;
        body.append(std::exchange(text, lineEnd));
        body.append(file.data);
    }
    body.append(text + "--" + mark + "--" + lineEnd);
    return body;
}
