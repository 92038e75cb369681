#include "Booking/BookRemoteNotaryModel.h"

#include "AppError.h"

#include <utility>

using namespace Qt::StringLiterals;

QCoro::Task<> BookRemoteNotaryModel::submit()
{
    const auto self = keep(this);
    if (isSubmitting.value())
        co_return;
    try {
        if (!isBooked())
            validate();
    } catch (const Fault& fault) {
        fault_ = fault;
        showAlert(u"Missing Information"_s, fault.message());
        co_return;
    }
    const std::optional<AuthUser> user = signedInUser();
    if (!user)
        co_return;
    const Turn turn = submissions_.next();
    // What the profile could still fill in would make another request of this one.
    prefills_.next();
    isSubmitting = true;
    try {
        co_await book(turn, user->idToken);
    } catch (const AppError& error) {
        showUploadProgress(turn, QString(), 0);
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

/// Whether the form as it stands has become a session already, which its files have not reached.
bool BookRemoteNotaryModel::isBooked() const
{
    return booked_ && booked_->form == formBody();
}

/// Once the person has signed out, the request under way ends by itself and nothing more is sent in their
/// name.
QCoro::Task<> BookRemoteNotaryModel::book(Turn turn, QString token)
{
    if (!isBooked()) {
        const std::shared_ptr<Booked> created = co_await create(turn, token);
        // Also when the session of its person has ended meanwhile: they may come back to this form.
        if (turn.isNewest())
            booked_ = created;
        if (turn.isOver())
            co_return;
    }
    const std::shared_ptr<Booked> booked = booked_;
    QString message = u"Remote notary request "_s + booked->reference
        + u" was created. Our team will review and confirm the session."_s;
    if (!pendingUploads().isEmpty() && booked->sessionId) {
        co_await uploadBookingFiles(booked, turn, token);
    } else if (!pendingUploads().isEmpty()) {
        message += u" Files were not uploaded automatically because the new session ID was not returned. "
                   "Open Sessions and upload them from the session detail."_s;
    }
    if (turn.isOver())
        co_return;
    booked_.reset();
    message += uploadedSuffix(booked->sentFiles.size());
    successMessage = message;
    // The sign-in screen is about to take the place of the success card.
    if (std::exchange(isSessionEnding_, false))
        context().notice = AlertMessage{.title = u"Request Submitted"_s, .message = message};
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

QCoro::Task<std::shared_ptr<BookRemoteNotaryModel::Booked>> BookRemoteNotaryModel::create(
    Turn turn, QString token)
{
    const auto created = std::make_shared<Booked>();
    created->form = formBody();
    const QJsonObject body = requestBody();
    const JSONObject response = co_await api().createSession(body, token);
    created->reference = response.string(u"reference_id"_s, response.string(u"id"_s, u"your new request"_s));
    if (turn.isOver())
        created->sessionId = answeredSessionId(response);
    else
        created->sessionId = co_await resolveCreatedSessionId(response, created->reference, token);
    co_return created;
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
    } catch (const AppError& error) {
        // The booking stands; only its files have to be sent from the session itself.
        isSessionEnding_ = isSessionExpired(error);
        co_return std::nullopt;
    }
}

/// Sends the attached files that are not in the session yet.
QCoro::Task<> BookRemoteNotaryModel::uploadBookingFiles(
    std::shared_ptr<Booked> booked, Turn turn, QString token)
{
    showUploadProgress(turn, u"Uploading attached files..."_s, 0);
    const SentUploads sent(booked, &booked->sentFiles);
    co_await sendUploads(*booked->sessionId, sent, turn, token);
    if (turn.isOver())
        co_return;
    removeUploads(*sent);
    showUploadProgress(turn, u"Upload complete."_s, 1);
}
