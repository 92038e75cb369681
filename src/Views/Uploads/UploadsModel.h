#pragma once

#include "DesktopUploadDraft.h"
#include "Screen/ScreenModel.h"

/// The model of a screen on which files are attached that go into a session: the files that wait for their
/// upload, and sending them, one after another and one request each.
class UploadsModel : public ScreenModel
{
    Q_OBJECT

public:
    explicit UploadsModel(const ScreenContext& context) : ScreenModel(context), additions_(epoch()) { }

    QProperty<bool> isDropTarget{false};
    QProperty<QString> uploadProgressText;
    /// How far an upload has come, 0 to 1. Each file counts for the same, as in the words beside it.
    QProperty<double> uploadProgress{0};

    const QList<DesktopUploadDraft>& pendingUploads() const { return pendingUploads_; }
    /// Appends a draft for each file that has none yet, once the disk has told about all of them. Files that
    /// are added later do not wait for that.
    void addUploads(const QList<QUrl>& files);
    /// Passes over a folder, a pipe or a device among the addresses: only regular files can be sent.
    void addRegularFiles(const QList<QUrl>& addresses);
    void setUploadLabel(const QUuid& id, const QString& label);
    void setUploadCategory(const QUuid& id, const QString& category);
    void removeUpload(const QUuid& id);
    void clearUploads();

signals:
    /// Files were attached or removed.
    void uploadsChanged();

protected:
    /// Drafts whose files have arrived in the session.
    using SentUploads = std::shared_ptr<QList<QUuid>>;

    /// Sends the files that are pending now, but not those in `sent`, and notes there each one that arrived.
    /// A file that is taken off the list before its turn is not sent, one that is added meanwhile neither.
    /// Ends early when the turn is over: nothing more is sent in the name of somebody who has left.
    /// \throws AppError at the first file that cannot be read or sent
    QCoro::Task<> sendUploads(qint64 sessionId, SentUploads sent, Turn turn, QString token);
    void removeUploads(const QList<QUuid>& ids);
    /// Shows it only while the turn counts.
    void showUploadProgress(const Turn& turn, const QString& text, double done);

private:
    enum class Kind
    {
        any,
        regular
    };

    QCoro::Task<> add(QList<QUrl> files, Kind kind);
    DesktopUploadDraft* findUpload(const QUuid& id);
    QCoro::Task<> sendUpload(DesktopUploadDraft draft, FoundFile found, qint64 sessionId,
        Request::Progress progress, QString token);

    QList<DesktopUploadDraft> pendingUploads_;
    Turns additions_;
};
