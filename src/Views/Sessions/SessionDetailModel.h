#pragma once

#include "Question.h"
#include "RemoteNotaryOption.h"
#include "Screen/EditPaneModel.h"
#include "Screen/SessionFields.h"
#include "Sessions/SessionDocumentsModel.h"
#include "Sessions/SessionMessagesModel.h"

/// One session beside the list: its record, its thread and documents, and what a notary and an admin can
/// change about it. What is typed into the fields and not saved stays there, whatever is loaded meanwhile.
class SessionDetailModel : public EditPaneModel
{
    Q_OBJECT

public:
    SessionDetailModel(const ScreenContext& context, qint64 sessionId);

    /// An entry of a picker.
    struct Choice
    {
        QString label;
        QString value;

        bool operator==(const Choice&) const = default;
    };

    static const QList<QString>& statusOptions();
    static Question cancelQuestion();
    static Question deleteQuestion();

    QProperty<QString> status;
    QProperty<QString> confirmedDate;
    QProperty<QString> confirmedTime;
    QProperty<QString> proposedFee;
    QProperty<QString> statusNote;
    QProperty<qint64> selectedNotaryId{0};
    QProperty<bool> requiresWitness{false};
    QProperty<QString> witnessName;

    QProperty<bool> isLoading{false};

    /// The record, once it has been loaded.
    const std::optional<SessionSummary>& session() const { return session_; }
    const QList<RemoteNotaryOption>& notaries() const { return notaries_; }
    const std::shared_ptr<SessionMessagesModel>& messages() const { return messages_; }
    const std::shared_ptr<SessionDocumentsModel>& documents() const { return documents_; }

    /// The statuses to choose from: statusOptions(), and the session's own where it is none of them.
    QList<Choice> statusChoices() const;
    /// The notaries to choose from, by their ids. "Not Assigned" is among them as long as nobody is assigned;
    /// whoever is assigned is always among them.
    QList<Choice> notaryChoices() const;
    /// Whether the active role is the one that changes a session in this way.
    bool hasNotaryControls() const;
    bool hasAdminControls() const;
    bool canCancel() const;

    bool hasEdits() const override;
    /// What would be lost with this model: here, in the thread, or among the documents.
    LeaveGuard::Unfinished unfinished() const override;

    /// Loads the record, the thread, the documents and, for the admin controls, the notaries, in this order;
    /// the first failure ends it. The newest load wins.
    QCoro::Task<> load();
    /// Each of these tells about the change once the bridge has accepted it. After all but a deletion the
    /// session is loaded again.
    QCoro::Task<> saveNotary();
    QCoro::Task<> saveAdmin();
    QCoro::Task<> cancel();
    QCoro::Task<> deleteSession();

    /// What is being loaded counts no longer, and no more is asked for.
    void close() override;
    void reopen() override;

signals:
    /// The record was loaded.
    void sessionChanged();
    void notariesChanged();

protected:
    void loadAgain() override;
    void entered() override { reopen(); }
    void left() override { close(); }

private:
    template <typename Self, typename Visit>
    static void forEachField(Self& self, Visit visit);
    SessionFields fields() const;
    void loadFields(const SessionSummary& session);
    void show(SessionSummary session);
    QCoro::Task<> loadAll(Turn turn, QString token);
    void passOverTheRest();

    qint64 sessionId_;
    std::optional<SessionSummary> session_;
    QList<RemoteNotaryOption> notaries_;
    std::shared_ptr<SessionMessagesModel> messages_;
    std::shared_ptr<SessionDocumentsModel> documents_;
    SessionFields loaded_; ///< what the fields are compared with
    Turns loads_;
    QPropertyNotifier onSending_;
    QPropertyNotifier onUploading_;
};
