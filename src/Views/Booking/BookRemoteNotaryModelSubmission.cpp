#include "Booking/BookRemoteNotaryModel.h"

#include "AppError.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

QCoro::Task<> BookRemoteNotaryModel::submit()
{
    const auto self = keep(this);
    if (isSubmitting.value())
        co_return;
    try {
        validate();
    } catch (const AppError& fault) {
        showAlert(u"Missing Information"_s, fault.message());
        co_return;
    }
    const std::optional<AuthUser> user = signedInUser();
    if (!user)
        co_return;
    const Turn turn = submissions_.next();
    isSubmitting = true;
    try {
        co_await book(user->idToken);
    } catch (const AppError& error) {
        fail(turn, u"Booking Failed"_s, error);
    }
    isSubmitting = false;
}

/// "1 file uploaded into the session." behind the message; nothing for no files.
static QString uploadedSuffix(qsizetype count)
{
    if (count == 0)
        return {};
    return u' ' + QString::number(count) + (count == 1 ? u" file"_s : u" files"_s)
        + u" uploaded into the session."_s;
}

QCoro::Task<> BookRemoteNotaryModel::book(QString token)
{
    const QJsonObject body = requestBody();
    if (!booked_ || booked_->body != body) {
        Booked created = co_await create(body, token);
        booked_ = std::move(created);
    }
    QString message = u"Remote notary request "_s + booked_->reference
        + u" was created. Our team will review and confirm the session."_s;
    if (!pendingUploads_.isEmpty()) {
        if (const std::optional<qint64> sessionId = booked_->sessionId) {
            const qsizetype count = co_await uploadBookingFiles(*sessionId, token);
            message += uploadedSuffix(count);
        } else {
            message += u" Files were not uploaded automatically because the new session ID was not returned. "
                       "Open Sessions and upload them from the session detail."_s;
        }
    }
    booked_ = std::nullopt;
    successMessage = message;
}

QCoro::Task<BookRemoteNotaryModel::Booked> BookRemoteNotaryModel::create(QJsonObject body, QString token)
{
    const JSONObject response = co_await api().createSession(body, token);
    Booked created;
    created.body = body;
    created.reference = response.string(u"reference_id"_s, response.string(u"id"_s, u"your new request"_s));
    created.sessionId = co_await resolveCreatedSessionId(response, created.reference, token);
    co_return created;
}

/// The id that an answer to a booking carries itself.
static std::optional<qint64> answeredSessionId(const JSONObject& response)
{
    for (const QString& key : {u"id"_s, u"session_id"_s, u"remote_notary_session_id"_s}) {
        if (const std::optional<qint64> id = response.intValue(key))
            return id;
    }
    const JSONObject session = response.object(u"session"_s).value_or(JSONObject());
    const std::optional<qint64> id = session.intValue(u"id"_s);
    return id ? id : session.intValue(u"session_id"_s);
}

/// The first session, in the order received, that goes by the reference.
static std::optional<qint64> idByReference(const QList<SessionSummary>& sessions, const QString& reference)
{
    for (const SessionSummary& session : sessions) {
        if (session.reference() == reference || QString::number(session.id) == reference)
            return session.id;
    }
    return std::nullopt;
}

QCoro::Task<std::optional<qint64>> BookRemoteNotaryModel::resolveCreatedSessionId(
    JSONObject response, QString reference, QString token)
{
    const std::optional<qint64> answered = answeredSessionId(response);
    if (answered || reference.trimmed().isEmpty())
        co_return answered;
    try {
        const QList<SessionSummary> sessions = co_await api().getSessions(QString(), QString(), token);
        co_return idByReference(sessions, reference);
    } catch (const AppError&) {
        // The booking stands; only its files have to be sent from the session itself.
        co_return std::nullopt;
    }
}

static qint64 sizeOf(const DesktopUploadDraft& draft)
{
    return QFileInfo(draft.url.toLocalFile()).size();
}

QCoro::Task<qsizetype> BookRemoteNotaryModel::uploadBookingFiles(qint64 sessionId, QString token)
{
    uploadProgressText = u"Uploading attached files..."_s;
    const QList<DesktopUploadDraft> drafts = pendingUploads_;
    uploadTotal_ = 0;
    uploadDone_ = 0;
    for (const DesktopUploadDraft& draft : drafts)
        uploadTotal_ += sizeOf(draft);
    for (qsizetype k = 0; k < drafts.size(); ++k) {
        const DesktopUploadDraft& draft = drafts.at(k);
        if (booked_->sentFiles.contains(draft.id)) {
            uploadDone_ += sizeOf(draft);
            continue;
        }
        uploadProgressText = u"Uploading %1 of %2: "_s.arg(k + 1).arg(drafts.size()) + draft.fileName();
        co_await uploadFile(draft, sessionId, token);
        booked_->sentFiles += draft.id;
    }
    pendingUploads_.removeIf([&drafts](const DesktopUploadDraft& draft) {
        return std::any_of(drafts.begin(), drafts.end(),
            [&draft](const DesktopUploadDraft& sent) { return sent.id == draft.id; });
    });
    emit uploadsChanged();
    uploadProgressText = u"Upload complete."_s;
    co_return drafts.size();
}

QCoro::Task<> BookRemoteNotaryModel::uploadFile(DesktopUploadDraft draft, qint64 sessionId, QString token)
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
    // The model outlives the request, which is awaited right here.
    Request::Progress progress = [this](qint64 sent, qint64) { uploadedBytes(sent); };
    co_await api().uploadSessionFiles(sessionId, draft.label, draft.category, files, token, progress);
    uploadDone_ += info.size();
    uploadedBytes(0);
}

void BookRemoteNotaryModel::uploadedBytes(qint64 bytes)
{
    if (uploadTotal_ > 0)
        uploadProgress = std::min(1.0, double(uploadDone_ + bytes) / double(uploadTotal_));
}
