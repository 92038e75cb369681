#include "Uploads/UploadsModel.h"

#include "AppError.h"

#include <QFileInfo>

#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

void UploadsModel::addUploads(const QList<QUrl>& files)
{
    addDrafts(pendingUploads_, files);
    emit uploadsChanged();
}

void UploadsModel::addRegularFiles(const QList<QUrl>& addresses)
{
    QList<QUrl> regular;
    std::copy_if(addresses.begin(), addresses.end(), std::back_inserter(regular),
        [](const QUrl& file) { return QFileInfo(file.toLocalFile()).isFile(); });
    addUploads(regular);
}

DesktopUploadDraft* UploadsModel::findUpload(const QUuid& id)
{
    const auto found = std::find_if(pendingUploads_.begin(), pendingUploads_.end(),
        [&id](const DesktopUploadDraft& draft) { return draft.id == id; });
    return found == pendingUploads_.end() ? nullptr : &*found;
}

void UploadsModel::setUploadLabel(const QUuid& id, const QString& label)
{
    if (DesktopUploadDraft* draft = findUpload(id))
        draft->label = label;
}

void UploadsModel::setUploadCategory(const QUuid& id, const QString& category)
{
    if (DesktopUploadDraft* draft = findUpload(id))
        draft->category = category;
}

void UploadsModel::removeUpload(const QUuid& id)
{
    const QList<QUuid> ids(1, id);
    removeUploads(ids);
}

void UploadsModel::removeUploads(const QList<QUuid>& ids)
{
    pendingUploads_.removeIf([&ids](const DesktopUploadDraft& draft) { return ids.contains(draft.id); });
    emit uploadsChanged();
}

void UploadsModel::clearUploads()
{
    pendingUploads_.clear();
    emit uploadsChanged();
}

static qint64 sizeOf(const DesktopUploadDraft& draft)
{
    return QFileInfo(draft.url.toLocalFile()).size();
}

/// How far the whole has come while a file is sent.
/// \param place  of the file among all, from 0
static double shareOf(qsizetype place, qsizetype count, qint64 sent, qint64 size)
{
    const double ofFile = size > 0 ? std::min(1.0, double(sent) / double(size)) : 0.0;
    return (double(place) + ofFile) / double(count);
}

QCoro::Task<> UploadsModel::sendUploads(qint64 sessionId, SentUploads sent, Turn turn, QString token)
{
    const QList<DesktopUploadDraft> pending = pendingUploads_;
    for (qsizetype k = 0; k < pending.size(); ++k) {
        // Looked up anew: the person may have edited the draft, or taken it off the list.
        const DesktopUploadDraft* found = findUpload(pending.at(k).id);
        if (!found)
            continue;
        const DesktopUploadDraft draft = *found;
        if (!sent->contains(draft.id)) {
            const qint64 size = sizeOf(draft);
            const QString text = u"Uploading %1 of %2: "_s.arg(k + 1).arg(pending.size()) + draft.fileName();
            Request::Progress progress
                = [this, turn, text, k, count = pending.size(), size](qint64 bytes, qint64) {
                      showUploadProgress(turn, text, shareOf(k, count, bytes, size));
                  };
            progress(0, size);
            co_await sendUpload(draft, sessionId, progress, token);
            sent->append(draft.id);
            if (turn.isOver())
                co_return;
        }
    }
}

QCoro::Task<> UploadsModel::sendUpload(
    DesktopUploadDraft draft, qint64 sessionId, Request::Progress progress, QString token)
{
    const QFileInfo info(draft.url.toLocalFile());
    if (!info.isFile() || !info.isReadable())
        throw AppError(u"One of the attached files could not be read. It may have been moved or deleted."_s);
    MultipartFile file;
    file.fieldName = u"desktop_files[]"_s;
    file.fileName = draft.fileName();
    file.mimeType = DesktopFileHelpers::mimeType(draft.url);
    file.data.path = info.filePath();
    file.data.size = info.size();
    const QList<MultipartFile> files(1, file);
    co_await api().uploadSessionFiles(sessionId, draft.label, draft.category, files, token, progress);
}

/// Bytes are still counted when the form has been reset or its person has left; nobody is to see them then.
void UploadsModel::showUploadProgress(const Turn& turn, const QString& text, double done)
{
    if (turn.isOver())
        return;
    uploadProgressText = text;
    uploadProgress = done;
}
