#include "Sessions/SessionMessagesModel.h"

#include "AppError.h"

using namespace Qt::StringLiterals;

SessionMessagesModel::SessionMessagesModel(const ScreenContext& context, qint64 sessionId)
    : ScreenModel(context), sessionId_(sessionId), loads_(epoch()), sendings_(epoch())
{ }

/// Bridges differ in how they write the role.
static std::optional<AppRole> roleOf(const SessionMessage& message)
{
    return appRole(message.senderType.trimmed().toLower());
}

QString SessionMessagesModel::icon(const SessionMessage& message)
{
    return systemImage(roleOf(message).value_or(AppRole::client));
}

QString SessionMessagesModel::roleTitle(const SessionMessage& message)
{
    if (const std::optional<AppRole> role = roleOf(message))
        return title(*role);
    QString word = message.senderType.trimmed();
    if (!word.isEmpty())
        word.front() = word.front().toUpper();
    return word;
}

QCoro::Task<> SessionMessagesModel::receive(QString idToken)
{
    const auto self = keep(this);
    const Turn turn = loads_.next();
    isMissing = false;
    try {
        const QList<SessionMessage> received = co_await api(turn).getSessionMessages(sessionId_, idToken);
        if (!turn.isOver())
            setMessages(received);
    } catch (const AppError&) {
        if (turn.isOver())
            co_return;
        isMissing = true;
        throw;
    }
}

void SessionMessagesModel::setMessages(QList<SessionMessage> messages)
{
    if (messages != messages_) {
        messages_ = std::move(messages);
        emit messagesChanged();
    }
    isLoaded = true;
}

void SessionMessagesModel::passOver()
{
    if (!isLoaded.value())
        isMissing = true;
}

QCoro::Task<> SessionMessagesModel::loadMessages()
{
    const auto self = keep(this);
    const std::optional<AuthUser> user = signedInUser();
    if (!user)
        co_return;
    try {
        co_await receive(user->idToken);
    } catch (const AppError& error) {
        fail(u"Cannot Load Messages"_s, error);
    }
}

QCoro::Task<> SessionMessagesModel::sendMessage()
{
    const auto self = keep(this);
    const std::optional<AuthUser> user = signedInUser();
    if (!user)
        co_return;
    const QString written = newMessage.value();
    if (isSending.value() || written.trimmed().isEmpty())
        co_return;
    const Turn turn = sendings_.next();
    isSending = true;
    bool hasArrived = false;
    try {
        co_await api().addSessionMessage(sessionId_, written.trimmed(), user->idToken);
        hasArrived = !turn.isOver();
    } catch (const AppError& error) {
        fail(turn, u"Cannot Send Message"_s, error);
    }
    if (hasArrived)
        clearSent(written);
    isSending = false;
    if (hasArrived && !isClosed_)
        co_await loadMessages();
}

void SessionMessagesModel::close()
{
    isClosed_ = true;
    loads_.next();
}

/// A draft that was rewritten in the meantime stays as it is: better said twice than lost.
void SessionMessagesModel::clearSent(const QString& sent)
{
    const QString now = newMessage.value();
    if (now.startsWith(sent))
        newMessage = now.sliced(sent.size());
    else if (now.endsWith(sent))
        newMessage = now.chopped(sent.size());
}
