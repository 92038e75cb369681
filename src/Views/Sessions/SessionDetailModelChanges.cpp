#include "Launch.h"
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

void SessionDetailModel::loadAgain()
{
    launch(load());
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
