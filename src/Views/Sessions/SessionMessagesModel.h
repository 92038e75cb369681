#pragma once

#include "Screen/ScreenModel.h"
#include "SessionMessage.h"

/// The message thread of one session, and the message that the person is writing.
///
/// Every failure becomes this model's own alert, which its card shows.
class SessionMessagesModel : public ScreenModel
{
    Q_OBJECT

public:
    SessionMessagesModel(const ScreenContext& context, qint64 sessionId);

    /// What is being written, as typed.
    QProperty<QString> newMessage;
    QProperty<bool> isSending{false};
    /// The thread has been loaded once: until then nothing is known about it.
    QProperty<bool> isLoaded{false};
    /// The last load that was to bring the thread ended without it.
    QProperty<bool> isMissing{false};

    /// In the order received: the newest last.
    const QList<SessionMessage>& messages() const { return messages_; }
    /// The symbol of the sender's role.
    static QString icon(const SessionMessage& message);
    /// The sender's role as people read it, e.g. "Notary".
    static QString roleTitle(const SessionMessage& message);
    /// Takes over a thread that has been loaded.
    void setMessages(QList<SessionMessage> messages);

    /// Loads the thread. The newest load wins; a failed one leaves the thread as it was.
    QCoro::Task<> loadMessages();
    /// The same for somebody who tells of failures themselves.
    /// \throws AppError unless a newer load has begun
    QCoro::Task<> receive(QString idToken);
    /// The load of the session has ended before it came to the thread.
    void passOver();
    /// Sends what is written, trimmed, and loads the thread again. Nothing happens while a message is on its
    /// way, or when there is nothing to send. What is sent leaves the draft once it has arrived; whatever was
    /// typed behind it in the meantime stays.
    QCoro::Task<> sendMessage();

    bool hasUnsentWork() const override { return !newMessage.value().trimmed().isEmpty(); }

    /// Nobody looks at the thread any more: a message on its way still arrives, but what is being loaded
    /// counts no longer, and no more is asked for.
    void close();
    void reopen() { isClosed_ = false; }

signals:
    /// The thread is another than before.
    void messagesChanged();

private:
    void clearSent(const QString& sent);

    qint64 sessionId_;
    QList<SessionMessage> messages_;
    Turns loads_;
    Turns sendings_;
    bool isClosed_ = false;
};
