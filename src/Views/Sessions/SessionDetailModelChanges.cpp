#include "AppError.h"
#include "Sessions/SessionDetailModel.h"

using namespace Qt::StringLiterals;

Question SessionDetailModel::cancelQuestion()
{
    return {u"Cancel Session?"_s, u"Everyone who takes part will see this session as cancelled."_s,
        u"Cancel Session"_s, u"Keep Session"_s};
}

Question SessionDetailModel::deleteQuestion()
{
    return {u"Delete Session?"_s, u"This session will be removed for everyone. This cannot be undone."_s,
        u"Delete Session"_s, u"Keep Session"_s};
}

QCoro::Task<> SessionDetailModel::carryOut(Change change)
{
    const auto self = keep(this);
    const std::optional<AuthUser> user = signedInUser();
    if (!user || work.value() != Work::none)
        co_return;
    const Turn turn = works_.next();
    work = change.work;
    bool isDone = false;
    try {
        const APIClient client = api();
        co_await change.send(client, user->idToken);
        isDone = !turn.isOver();
    } catch (const AppError& error) {
        fail(turn, change.failureTitle, error);
    }
    if (isDone)
        change.accepted();
    work = Work::none;
    // Whoever waits to leave goes on after a success, and stays with a failure, which they have to read.
    if (isDone)
        context().leaving.reconsider();
    else if (!isClosed_)
        context().leaving.answer(false);
    if (isDone && !isClosed_)
        co_await load();
}

QCoro::Task<> SessionDetailModel::saveNotary()
{
    const SessionFields sent = fields();
    Change change;
    change.work = Work::notaryUpdate;
    change.failureTitle = u"Cannot Save Update"_s;
    change.send = [id = sessionId_, body = sent.notaryUpdate()](const APIClient& client,
                      const QString& token) { return client.updateNotarySession(id, body, token); };
    change.accepted = [this, sent] {
        loaded_.takeNotaryUpdate(sent);
        showAlert(u"Saved"_s, u"Notary update was saved."_s);
        emit changed();
    };
    return carryOut(std::move(change));
}

QCoro::Task<> SessionDetailModel::saveAdmin()
{
    const SessionFields sent = fields();
    Change change;
    change.work = Work::adminChanges;
    change.failureTitle = u"Cannot Save Session"_s;
    change.send = [id = sessionId_, body = sent.adminChanges()](const APIClient& client,
                      const QString& token) { return client.assignAdminSession(id, body, token); };
    change.accepted = [this, sent] {
        loaded_.takeAdminChanges(sent);
        showAlert(u"Saved"_s, u"Session was updated."_s);
        emit changed();
    };
    return carryOut(std::move(change));
}

QCoro::Task<> SessionDetailModel::cancel()
{
    Change change;
    change.work = Work::cancellation;
    change.failureTitle = u"Cannot Cancel Session"_s;
    change.send = [id = sessionId_](const APIClient& client, const QString& token) {
        return client.cancelSession(id, token);
    };
    change.accepted = [this] { emit changed(); };
    return carryOut(std::move(change));
}

QCoro::Task<> SessionDetailModel::deleteSession()
{
    Change change;
    change.work = Work::deletion;
    change.failureTitle = u"Cannot Delete Session"_s;
    change.send = [id = sessionId_](const APIClient& client, const QString& token) {
        return client.deleteAdminRecord(id, u"remote"_s, u"remote_notary_sessions"_s, token);
    };
    change.accepted = [this] {
        close();
        emit deleted();
    };
    return carryOut(std::move(change));
}
