#include "Sessions/SessionDetailModel.h"

#include "AppError.h"

#include <algorithm>

using namespace Qt::StringLiterals;

const QList<QString>& SessionDetailModel::statusOptions()
{
    static const QList<QString> options{
        u"requested"_s, u"scheduled"_s, u"rescheduled"_s, u"completed"_s, u"cancelled"_s};
    return options;
}

SessionDetailModel::SessionDetailModel(const ScreenContext& context, qint64 sessionId)
    : EditPaneModel(context), sessionId_(sessionId),
      messages_(std::make_shared<SessionMessagesModel>(context, sessionId)),
      documents_(std::make_shared<SessionDocumentsModel>(context, sessionId)), loads_(epoch())
{
    // Later, because whoever waits for the end of a sending may take this model away.
    const auto reconsiderLater = [&leaving = context.leaving] {
        QMetaObject::invokeMethod(&leaving, &LeaveGuard::reconsider, Qt::QueuedConnection);
    };
    onSending_ = messages_->isSending.addNotifier(reconsiderLater);
    onUploading_ = documents_->isUploadingFiles.addNotifier(reconsiderLater);
}

template <typename Self, typename Visit>
void SessionDetailModel::forEachField(Self& self, Visit visit)
{
    visit(self.status, &SessionFields::status);
    visit(self.confirmedDate, &SessionFields::confirmedDate);
    visit(self.confirmedTime, &SessionFields::confirmedTime);
    visit(self.proposedFee, &SessionFields::proposedFee);
    visit(self.statusNote, &SessionFields::statusNote);
    visit(self.selectedNotaryId, &SessionFields::selectedNotaryId);
    visit(self.requiresWitness, &SessionFields::requiresWitness);
    visit(self.witnessName, &SessionFields::witnessName);
}

SessionFields SessionDetailModel::fields() const
{
    SessionFields now;
    forEachField(*this, [&now](const auto& field, auto place) { now.*place = field.value(); });
    return now;
}

bool SessionDetailModel::hasEdits() const
{
    return fields() != loaded_;
}

/// Fills the fields from the record, except those that are being edited.
void SessionDetailModel::loadFields(const SessionSummary& session)
{
    const SessionFields received = SessionFields::of(session);
    const SessionFields before = std::exchange(loaded_, received);
    forEachField(*this, [&](auto& field, auto place) {
        if (field.value() == before.*place)
            field = received.*place;
    });
}

void SessionDetailModel::show(SessionSummary session)
{
    session_ = std::move(session);
    loadFields(*session_);
    emit sessionChanged();
}

QCoro::Task<> SessionDetailModel::load()
{
    const auto self = keep(this);
    const std::optional<AuthUser> user = signedInUser();
    if (!user || isClosed())
        co_return;
    const Turn turn = loads_.next();
    isLoading = true;
    try {
        co_await loadAll(turn, user->idToken);
    } catch (const AppError& error) {
        fail(turn, u"Cannot Load Session"_s, error);
        if (!turn.isOver())
            passOverTheRest();
    }
    if (turn.isNewest())
        isLoading = false;
}

QCoro::Task<> SessionDetailModel::loadAll(Turn turn, QString token)
{
    SessionSummary session = co_await api(turn).getSession(sessionId_, token);
    if (turn.isOver())
        co_return;
    show(std::move(session));

    co_await messages_->receive(token);
    if (turn.isOver())
        co_return;
    co_await documents_->receive(token);
    if (turn.isOver() || !hasAdminControls())
        co_return;
    QList<RemoteNotaryOption> notaries = co_await api(turn).getAdminNotaries(token);
    if (turn.isOver())
        co_return;
    notaries_ = std::move(notaries);
    emit notariesChanged();
}

void SessionDetailModel::close()
{
    EditPaneModel::close();
    messages_->close();
    documents_->close();
    loads_.next();
    isLoading = false;
}

void SessionDetailModel::reopen()
{
    EditPaneModel::reopen();
    messages_->reopen();
    documents_->reopen();
}

/// The first failure has ended the load: the parts behind it have not been asked for.
void SessionDetailModel::passOverTheRest()
{
    messages_->passOver();
    documents_->passOver();
}

bool SessionDetailModel::hasNotaryControls() const
{
    return context().auth.role() == AppRole::notary;
}

bool SessionDetailModel::hasAdminControls() const
{
    return context().auth.role() == AppRole::admin;
}

bool SessionDetailModel::canCancel() const
{
    return session_ && session_->canCancel();
}

QList<SessionDetailModel::Choice> SessionDetailModel::statusChoices() const
{
    QList<Choice> choices;
    for (const QString& option : statusOptions())
        choices += {option, option};
    if (!loaded_.status.isEmpty() && !statusOptions().contains(loaded_.status))
        choices += {loaded_.status, loaded_.status};
    return choices;
}

/// Namesakes are told apart by their e-mail addresses.
static QString labelOf(const RemoteNotaryOption& notary, const QList<RemoteNotaryOption>& among)
{
    const auto sameName = [&notary](const RemoteNotaryOption& other) { return other.name == notary.name; };
    const bool isAmbiguous = std::count_if(among.begin(), among.end(), sameName) > 1;
    return isAmbiguous && !notary.email.isEmpty() ? notary.name + u" ("_s + notary.email + u')' : notary.name;
}

QList<SessionDetailModel::Choice> SessionDetailModel::notaryChoices() const
{
    const qint64 assigned = loaded_.selectedNotaryId;
    QList<Choice> choices;
    if (assigned < 1)
        choices += {u"Not Assigned"_s, QString::number(assigned)};
    bool hasAssigned = assigned < 1;
    for (const RemoteNotaryOption& notary : notaries_) {
        if (notary.id < 1)
            continue;
        choices += {labelOf(notary, notaries_), QString::number(notary.id)};
        hasAssigned = hasAssigned || notary.id == assigned;
    }
    if (!hasAssigned) {
        const QString name = session_ ? session_->raw.string(u"assigned_notary_name"_s) : QString();
        choices += {name.isEmpty() ? u"Assigned Notary"_s : name, QString::number(assigned)};
    }
    return choices;
}

LeaveGuard::Unfinished SessionDetailModel::unfinished() const
{
    if (messages_->isSending.value() || documents_->isUploadingFiles.value())
        return LeaveGuard::Unfinished::work;
    const LeaveGuard::Unfinished here = EditPaneModel::unfinished();
    const bool isUnsent = messages_->hasUnsentWork() || documents_->hasUnsentWork();
    return here == LeaveGuard::Unfinished::nothing && isUnsent ? LeaveGuard::Unfinished::edits : here;
}
