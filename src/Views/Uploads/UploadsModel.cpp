#include "Uploads/UploadsModel.h"

#include "AppError.h"
#include "Launch.h"

#include <QCoroFuture>

#include <algorithm>

using namespace Qt::StringLiterals;

void UploadsModel::addUploads(const QList<QUrl>& files)
{
    launch(add(files, Kind::any));
}

void UploadsModel::addRegularFiles(const QList<QUrl>& addresses)
{
    launch(add(addresses, Kind::regular));
}

QCoro::Task<> UploadsModel::add(QList<QUrl> files, Kind kind)
{
    const auto self = keep(this);
    const Turn turn = additions_.beside();
    QStringList paths;
    paths.reserve(files.size());
    for (const QUrl& file : files)
        paths += file.toLocalFile();
    const QFuture<QList<FoundFile>> look = context().lookAtFiles(paths);
    const QList<FoundFile> found = co_await look;
    const bool isWanted = !turn.isOvertaken();
    additions_.end(turn);
    if (!isWanted)
        co_return;
    QList<AttachedFile> attached;
    for (qsizetype k = 0; k < files.size(); ++k) {
        if (kind == Kind::any || found.at(k).isRegular)
            attached += {files.at(k), found.at(k).size};
    }
    addDrafts(pendingUploads_, attached);
    emit uploadsChanged();
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
    additions_.outdate();
    pendingUploads_.clear();
    emit uploadsChanged();
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
        const QUuid id = pending.at(k).id;
        if (!findUpload(id) || sent->contains(id))
            continue;
        const QStringList path(pending.at(k).url.toLocalFile());
        const QFuture<QList<FoundFile>> look = context().lookAtFiles(path);
        const QList<FoundFile> onDisk = co_await look;
        if (turn.isOver())
            co_return;
        // Looked up anew: the person may have edited the draft, or taken it off the list.
        const DesktopUploadDraft* found = findUpload(id);
        if (!found)
            continue;
        const DesktopUploadDraft draft = *found;
        const qint64 size = onDisk.constFirst().size.value_or(0);
        const QString text = u"Uploading %1 of %2: "_s.arg(k + 1).arg(pending.size()) + draft.fileName();
        Request::Progress progress
            = [this, turn, text, k, count = pending.size(), size](
                  qint64 bytes, qint64) { showUploadProgress(turn, text, shareOf(k, count, bytes, size)); };
        progress(0, size);
        co_await sendUpload(draft, onDisk.constFirst(), sessionId, progress, token);
        sent->append(id);
        if (turn.isOver())
            co_return;
    }
}

QCoro::Task<> UploadsModel::sendUpload(
    DesktopUploadDraft draft, FoundFile found, qint64 sessionId, Request::Progress progress, QString token)
{
    if (!found.size)
        throw AppError(u"One of the attached files could not be read. It may have been moved or deleted."_s);
    MultipartFile file;
    file.fieldName = u"desktop_files[]"_s;
    file.fileName = draft.fileName();
    file.mimeType = DesktopFileHelpers::mimeType(draft.url);
    file.data.path = draft.url.toLocalFile();
    file.data.size = *found.size;
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
