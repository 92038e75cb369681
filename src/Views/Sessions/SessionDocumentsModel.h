#pragma once

#include "RemoteDocumentUpload.h"
#include "Uploads/UploadsModel.h"

/// The documents of one session, and the files that are to join them.
///
/// Every failure becomes this model's own alert, which its card shows.
class SessionDocumentsModel : public UploadsModel
{
    Q_OBJECT

public:
    SessionDocumentsModel(const ScreenContext& context, qint64 sessionId);

    QProperty<bool> isUploadingFiles{false};
    /// The list has been loaded once: until then nothing is known about it.
    QProperty<bool> isLoaded{false};
    /// The last load that was to bring the list ended without it.
    QProperty<bool> isMissing{false};

    const QList<RemoteDocumentUpload>& documents() const { return documents_; }
    /// Takes over a list that has been loaded.
    void setDocuments(QList<RemoteDocumentUpload> documents);
    /// The symbol of a document's kind, told by its file name.
    static QString icon(const RemoteDocumentUpload& document);
    static QString uploader(const RemoteDocumentUpload& document);

    /// Loads the list. The newest load wins; a failed one leaves the list as it was.
    QCoro::Task<> loadDocuments();
    /// The same for somebody who tells of failures themselves.
    /// \throws AppError unless a newer load has begun
    QCoro::Task<> receive(QString idToken);
    /// The load of the session has ended before it came to the documents.
    void passOver();
    /// Sends the pending files and loads the list again. Nothing happens while an upload is under way, or
    /// when no file is pending. Files that are added meanwhile wait for the next press, so that they can be
    /// labelled first. After a failure the files that have not arrived are pending still.
    QCoro::Task<> uploadPendingFiles();

    /// Whether there is a website that openUpload() would open.
    static bool canOpen(const RemoteDocumentUpload& document);
    /// Opens the document in the browser; one without a proper http or https address is left alone.
    void openUpload(const RemoteDocumentUpload& document);

    bool hasUnsentWork() const override { return !pendingUploads().isEmpty(); }

    /// Nobody looks at the documents any more: an upload still runs to its end, but what is being loaded
    /// counts no longer, and no more is asked for.
    void close();
    void reopen() { isClosed_ = false; }

signals:
    /// The list was loaded anew.
    void documentsChanged();

private:
    enum class Failures
    {
        shown,
        hidden
    };
    QCoro::Task<> load(Failures failures);

    qint64 sessionId_;
    QList<RemoteDocumentUpload> documents_;
    Turns loads_;
    Turns uploads_;
    bool isClosed_ = false;
};
