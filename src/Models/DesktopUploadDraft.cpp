#include "DesktopUploadDraft.h"

#include "ByteCount.h"

#include <QSet>

using namespace Qt::StringLiterals;

QString DesktopUploadDraft::detail() const
{
    QStringList parts{fileName()};
    if (size)
        parts.append(formattedByteCount(*size));
    return parts.join(u" • "_s);
}

const QList<UploadCategory>& uploadCategories()
{
    static const QList<UploadCategory> categories{
        {u"notarized_document"_s, u"Notarized Document"_s},
        {u"government_id"_s, u"Government ID"_s},
        {u"supporting_document"_s, u"Supporting Document"_s},
        {u"apostille_document"_s, u"Apostille Document"_s},
    };
    return categories;
}

void addDrafts(QList<DesktopUploadDraft>& drafts, const QList<AttachedFile>& files)
{
    QSet<QUrl> known;
    for (const DesktopUploadDraft& draft : drafts)
        known.insert(DesktopFileHelpers::standardized(draft.url));
    for (const AttachedFile& file : files) {
        const QUrl url = DesktopFileHelpers::standardized(file.url);
        if (url.isEmpty() || known.contains(url))
            continue;
        known.insert(url);
        drafts.append({
            .url = url,
            .label = DesktopFileHelpers::suggestedLabel(url),
            .category = DesktopFileHelpers::suggestedCategory(url),
            .size = file.size,
        });
    }
}
