#include "Sessions/SessionDocumentsModel.h"

#include "AppError.h"

using namespace Qt::StringLiterals;

SessionDocumentsModel::SessionDocumentsModel(const ScreenContext& context, qint64 sessionId)
    : UploadsModel(context), sessionId_(sessionId), loads_(epoch()), uploads_(epoch())
{
    // Files that are waiting now have nothing to do with an upload that is over.
    connect(this, &UploadsModel::uploadsChanged, this, [this] {
        if (!isUploadingFiles.value() && !pendingUploads().isEmpty()) {
            uploadProgressText = QString();
            uploadProgress = 0;
        }
    });
}

QString SessionDocumentsModel::icon(const RemoteDocumentUpload& document)
{
    return DesktopFileHelpers::icon(document.fileName());
}

QString SessionDocumentsModel::uploader(const RemoteDocumentUpload& document)
{
    return document.raw.string(u"uploaded_by_name"_s);
}

QCoro::Task<> SessionDocumentsModel::receive(QString idToken)
{
    const auto self = keep(this);
    const Turn turn = loads_.next();
    isMissing = false;
    try {
        const QList<RemoteDocumentUpload> received
            = co_await api(turn).getSessionDocuments(sessionId_, idToken);
        if (!turn.isOver())
            setDocuments(received);
    } catch (const AppError&) {
        if (turn.isOver())
            co_return;
        isMissing = true;
        throw;
    }
}

void SessionDocumentsModel::setDocuments(QList<RemoteDocumentUpload> documents)
{
    documents_ = std::move(documents);
    emit documentsChanged();
    isLoaded = true;
}

void SessionDocumentsModel::passOver()
{
    if (!isLoaded.value())
        isMissing = true;
}

QCoro::Task<> SessionDocumentsModel::loadDocuments()
{
    return load(Failures::shown);
}

QCoro::Task<> SessionDocumentsModel::load(Failures failures)
{
    const auto self = keep(this);
    const std::optional<AuthUser> user = signedInUser();
    if (!user)
        co_return;
    try {
        co_await receive(user->idToken);
    } catch (const AppError& error) {
        if (failures == Failures::shown || isSessionExpired(error))
            fail(u"Cannot Load Files"_s, error);
    }
}

QCoro::Task<> SessionDocumentsModel::uploadPendingFiles()
{
    const auto self = keep(this);
    const std::optional<AuthUser> user = signedInUser();
    if (!user || isUploadingFiles.value() || pendingUploads().isEmpty())
        co_return;
    const Turn turn = uploads_.next();
    const auto sent = std::make_shared<QList<QUuid>>();
    isUploadingFiles = true;
    showUploadProgress(turn, u"Preparing files..."_s, 0);
    bool isComplete = false;
    try {
        co_await sendUploads(sessionId_, sent, turn, user->idToken);
        isComplete = true;
    } catch (const AppError& error) {
        showUploadProgress(turn, QString(), 0);
        fail(turn, u"Cannot Upload File"_s, error);
    }
    removeUploads(*sent);
    isUploadingFiles = false;
    if (turn.isOver())
        co_return;
    if (isComplete)
        showUploadProgress(turn, u"Upload complete."_s, 1);
    // Beside the failure that is on screen already, another one would only hide it.
    if (!sent->isEmpty() && !isClosed_)
        co_await load(isComplete ? Failures::shown : Failures::hidden);
}

void SessionDocumentsModel::close()
{
    isClosed_ = true;
    loads_.next();
}

/// The address under which the document is to be had.
static QUrl addressOf(const RemoteDocumentUpload& document)
{
    const JSONObject& raw = document.raw;
    const QString address
        = raw.string(u"pdf_url"_s, raw.string(u"file_url"_s, raw.string(u"download_url"_s)));
    return QUrl(address.trimmed());
}

bool SessionDocumentsModel::canOpen(const RemoteDocumentUpload& document)
{
    return isSafeWebsite(addressOf(document));
}

void SessionDocumentsModel::openUpload(const RemoteDocumentUpload& document)
{
    context().systemOpen.openWebsite(addressOf(document));
}
