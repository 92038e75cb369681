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

    /// In the order received: the newest last.
    const QList<SessionMessage>& messages() const { return messages_; }
    /// The symbol of the sender's role.
    static QString icon(const SessionMessage& message);
    /// The sender's role as people read it, e.g. "Notary".
    static QString roleTitle(const SessionMessage& message);
    /// Takes over a thread that somebody else has loaded.
    void setMessages(QList<SessionMessage> messages);
    /// The turn of somebody who begins to load the thread: when it is over, a later load has begun, and what
    /// they received is not to be handed over any more.
    Turn nextLoad() { return loads_.next(); }

    /// The newest load wins; a failed one leaves the thread as it was.
    QCoro::Task<> loadMessages();
    /// Sends what is written, trimmed, and loads the thread again. Nothing happens while a message is on its
    /// way, or when there is nothing to send. What is sent leaves the draft once it has arrived; whatever was
    /// typed behind it in the meantime stays.
    QCoro::Task<> sendMessage();

    bool hasUnsentWork() const override { return !newMessage.value().trimmed().isEmpty(); }

    /// Nobody looks at the thread any more: a message on its way still arrives, but nothing is loaded after
    /// it.
    void close() { isClosed_ = true; }
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
