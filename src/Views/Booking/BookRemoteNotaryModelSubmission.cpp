#include "Booking/BookRemoteNotaryModel.h"

#include "AppError.h"

#include <QFileInfo>

#include <algorithm>

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
        co_await book(turn, user->idToken);
    } catch (const AppError& error) {
        showProgress(turn, QString(), 0);
        fail(turn, u"Booking Failed"_s, error);
    }
    if (turn.isNewest())
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

/// Once the person has signed out, the request under way ends by itself and nothing more is sent in their
/// name.
QCoro::Task<> BookRemoteNotaryModel::book(Turn turn, QString token)
{
    const QJsonObject body = requestBody();
    std::shared_ptr<Booked> booked = booked_;
    if (!booked || booked->body != body) {
        booked = co_await create(body, turn, token);
        if (turn.isOver())
            co_return;
        booked_ = booked;
    }
    QString message = u"Remote notary request "_s + booked->reference
        + u" was created. Our team will review and confirm the session."_s;
    if (!pendingUploads_.isEmpty() && booked->sessionId) {
        const qsizetype count = co_await uploadBookingFiles(booked, turn, token);
        message += uploadedSuffix(count);
    } else if (!pendingUploads_.isEmpty()) {
        message += u" Files were not uploaded automatically because the new session ID was not returned. "
                   "Open Sessions and upload them from the session detail."_s;
    }
    if (turn.isOver())
        co_return;
    booked_.reset();
    successMessage = message;
}

QCoro::Task<std::shared_ptr<BookRemoteNotaryModel::Booked>> BookRemoteNotaryModel::create(
    QJsonObject body, Turn turn, QString token)
{
    const JSONObject response = co_await api().createSession(body, token);
    const auto created = std::make_shared<Booked>();
    created->body = body;
    created->reference = response.string(u"reference_id"_s, response.string(u"id"_s, u"your new request"_s));
    if (!turn.isOver())
        created->sessionId = co_await resolveCreatedSessionId(response, created->reference, token);
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

static double fraction(qint64 part, qint64 whole)
{
    return whole > 0 ? std::min(1.0, double(part) / double(whole)) : 0.0;
}

/// Sends the attached files that are not in the session yet, one after another.
/// \returns how many files of this booking are in the session then
QCoro::Task<qsizetype> BookRemoteNotaryModel::uploadBookingFiles(
    std::shared_ptr<Booked> booked, Turn turn, QString token)
{
    showProgress(turn, u"Uploading attached files..."_s, 0);
    const QList<DesktopUploadDraft> attached = pendingUploads_;
    qint64 total = 0;
    for (const DesktopUploadDraft& draft : attached)
        total += sizeOf(draft);
    qint64 done = 0;
    for (qsizetype k = 0; k < attached.size(); ++k) {
        // Looked up anew: the person may have taken the file off the list while others were sent.
        const DesktopUploadDraft* found = findUpload(attached.at(k).id);
        if (!found)
            continue;
        const DesktopUploadDraft draft = *found;
        const qint64 size = sizeOf(draft);
        if (!booked->sentFiles.contains(draft.id)) {
            const QString text = u"Uploading %1 of %2: "_s.arg(k + 1).arg(attached.size()) + draft.fileName();
            Request::Progress progress = [this, turn, text, done, size, total](qint64 sent, qint64) {
                showProgress(turn, text, fraction(done + std::min(sent, size), total));
            };
            progress(0, size);
            co_await uploadFile(draft, *booked->sessionId, progress, token);
            if (turn.isOver())
                co_return 0;
            booked->sentFiles += draft.id;
        }
        done += size;
    }
    pendingUploads_.removeIf(
        [&booked](const DesktopUploadDraft& draft) { return booked->sentFiles.contains(draft.id); });
    emit uploadsChanged();
    showProgress(turn, u"Upload complete."_s, 1);
    co_return booked->sentFiles.size();
}

QCoro::Task<> BookRemoteNotaryModel::uploadFile(
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
void BookRemoteNotaryModel::showProgress(const Turn& turn, const QString& text, double done)
{
    if (turn.isOver())
        return;
    uploadProgressText = text;
    uploadProgress = done;
}
