#include "RemoteDocumentUpload.h"

#include "ByteCount.h"

using namespace Qt::StringLiterals;

namespace {

qint64 fileSize(const RemoteDocumentUpload& document)
{
    return document.raw.intValue(u"file_size"_s).value_or(0);
}

QString createdAt(const RemoteDocumentUpload& document)
{
    return document.raw.string(u"created_at"_s);
}

} // namespace

QString RemoteDocumentUpload::fileName() const
{
    return raw.string(u"original_filename"_s, raw.string(u"file_name"_s, u"Document"_s));
}

QString RemoteDocumentUpload::displayName() const
{
    QString name = raw.string(u"document_name"_s, raw.string(u"label"_s, u"Session document"_s)).trimmed();
    // All camera photos carry this one label; their file names tell them apart.
    if (name.toLower() == u"remote notary camera photos"_s)
        return fileName();
    return name;
}

QString RemoteDocumentUpload::displayDetail() const
{
    QStringList parts{fileName()};
    if (const qint64 size = fileSize(*this); size >= 1)
        parts.append(formattedByteCount(size));
    if (const QString time = createdAt(*this); !time.isEmpty())
        parts.append(time);
    return parts.join(u" • "_s);
}

bool operator==(const RemoteDocumentUpload& a, const RemoteDocumentUpload& b)
{
    return a.id == b.id && createdAt(a) == createdAt(b) && fileSize(a) == fileSize(b);
}
