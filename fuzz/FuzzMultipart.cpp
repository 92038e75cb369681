// The form of an upload: whatever the labels, names and contents, a server reads back what was put in.

#include "Multipart.h"
#include "support/FormReader.h"

#include <fuzzer/FuzzedDataProvider.h>

using namespace Qt::StringLiterals;

namespace {

QString text(FuzzedDataProvider& input)
{
    return QString::fromStdString(input.ConsumeRandomLengthString());
}

/// A name as it stands within a header line.
QByteArray onOneLine(const QString& name)
{
    return name.toUtf8().replace('\r', "%0D").replace('\n', "%0A");
}

/// The bytes on the wire, with the contents in the places of their files.
QByteArray sent(const RequestBody& body, QList<QByteArray> contents)
{
    QByteArray bytes;
    for (const RequestBody::Part& part : body.parts())
        bytes += std::holds_alternative<QByteArray>(part) ? std::get<QByteArray>(part) : contents.takeFirst();
    return bytes;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    FuzzedDataProvider input(data, size);
    // A boundary is random, so that no content can hold it; here it is longer than any input.
    const QByteArray boundary(qsizetype(size) + 1, 'x');

    FormFields fields;
    QList<FormPart> expected;
    while (input.ConsumeBool()) {
        const QString key = text(input);
        const QString value = text(input);
        fields += {key, value};
        expected
            += FormPart{"Content-Disposition: form-data; name=\"" + onOneLine(key) + '"', value.toUtf8()};
    }
    QList<MultipartFile> files;
    QList<QByteArray> contents;
    while (input.ConsumeBool()) {
        const QString fileName = text(input);
        contents += QByteArray::fromStdString(input.ConsumeRandomLengthString());
        files += MultipartFile{u"f[]"_s, fileName, u"image/png"_s, {u"/"_s, contents.last().size()}};
        expected += FormPart{"Content-Disposition: form-data; name=\"f[]\"; filename=\"" + onOneLine(fileName)
                + "\"\r\nContent-Type: image/png",
            contents.last()};
    }

    const RequestBody body = makeMultipartBody(QString::fromLatin1(boundary), fields, files);
    const QByteArray bytes = sent(body, contents);
    if (bytes.size() != body.size() || readForm(bytes, boundary) != expected)
        __builtin_trap();
    return 0;
}
