#include "Sessions/SessionsModel.h"

#include "Launch.h"
#include "Screen/SessionRow.h"
#include "Worker.h"

#include <QCoroFuture>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

SessionsModel::SessionsModel(const ScreenContext& context)
    : ListScreenModel(context), role(context.auth.role())
{
    onStatusFilter_ = statusFilter.addNotifier([this] { filterByStatus(); });
    onUser_ = auth().user.addNotifier([this] { followRole(); });
    onActiveRole_ = auth().activeRole.addNotifier([this] { followRole(); });
}

SessionsModel::~SessionsModel()
{
    if (detail_)
        detail_->close();
}

const QList<SessionsModel::StatusOption>& SessionsModel::statuses()
{
    static const QList<StatusOption> statuses{
        {u""_s, u"All Statuses"_s},
        {u"requested"_s, u"Requested"_s},
        {u"scheduled"_s, u"Scheduled"_s},
        {u"rescheduled"_s, u"Rescheduled"_s},
        {u"completed"_s, u"Completed"_s},
        {u"cancelled"_s, u"Cancelled"_s},
    };
    return statuses;
}

QString SessionsModel::searchPlaceholder()
{
    return u"Search name, signer, email, status, document"_s;
}

namespace {

struct RoleTexts
{
    QString scope;
    QString subtitle;
};

RoleTexts roleTexts(AppRole role)
{
    switch (role) {
    case AppRole::client:
        return {{}, u"Your remote notary sessions."_s};
    case AppRole::business:
        return {u"business"_s, u"Business remote sessions."_s};
    case AppRole::notary:
        return {u"notary_assigned"_s, u"Assigned and open remote notary sessions."_s};
    case AppRole::admin:
        return {u"admin_all"_s, u"All remote notary sessions."_s};
    }
    Q_UNREACHABLE();
}

} // namespace

QString SessionsModel::subtitle() const
{
    return roleTexts(role.value()).subtitle;
}

/// Another role sees other sessions. Those of the old one go at once, whatever becomes of the load.
void SessionsModel::followRole()
{
    // Somebody who comes back after their session has ended finds what they were at.
    if (!auth().isSignedIn() || auth().role() == role.value())
        return;
    role = auth().role();
    discardOnWorker(std::exchange(sessions_, {}));
    rows().setContent({});
    selectNone();
    emit selectionChanged();
    loadChange();
}

QString SessionsModel::loadFailureTitle() const
{
    return u"Cannot Load Sessions"_s;
}

QCoro::Task<SessionsModel::Store> SessionsModel::fetch(APIClient client, QString idToken)
{
    const QString scope = roleTexts(role.value()).scope;
    QList<SessionSummary> received = co_await client.getSessions(scope, QString(), idToken);
    auto preparing = [received = std::move(received)]() mutable { return prepare(std::move(received)); };
    const QFuture<Loaded> prepared = onWorker(std::move(preparing));
    const Loaded loaded = co_await prepared;
    Store store = [this, loaded] { show(loaded); };
    co_return store;
}

SessionsModel::Loaded SessionsModel::prepare(QList<SessionSummary> received)
{
    struct Dated
    {
        QString when;
        SessionSummary session;
    };
    QList<Dated> dated;
    dated.reserve(received.size());
    for (SessionSummary& session : received)
        dated += {session.displayDateTime(), std::move(session)};
    std::stable_sort(
        dated.begin(), dated.end(), [](const Dated& a, const Dated& b) { return a.when > b.when; });

    Loaded loaded;
    QList<RowTexts> rows;
    loaded.sessions.reserve(dated.size());
    rows.reserve(dated.size());
    for (Dated& entry : dated) {
        rows += sessionRow(entry.session, entry.when);
        loaded.sessions += std::move(entry.session);
    }
    loaded.rows = RowListModel::Content::of(std::move(rows));
    return loaded;
}

void SessionsModel::show(Loaded loaded)
{
    discardOnWorker(std::exchange(sessions_, std::move(loaded.sessions)));
    rows().setContent(std::move(loaded.rows));
    const std::optional<qint64> routed = router().selectedSessionId.value();
    const SessionSummary* chosen = routed ? find(*routed) : nullptr;
    if (!chosen && selectedSession_)
        chosen = find(selectedSession_->id);
    if (!chosen && !selectedSession_ && !sessions_.isEmpty())
        chosen = &sessions_.constFirst();
    if (chosen && selectedSession_ && chosen->id != selectedSession_->id)
        select(chosen->id);
    else if (chosen)
        setSelected(*chosen);
    emit selectionChanged();
}

const SessionSummary* SessionsModel::find(qint64 id) const
{
    const auto found = std::find_if(
        sessions_.begin(), sessions_.end(), [id](const SessionSummary& session) { return session.id == id; });
    return found == sessions_.end() ? nullptr : &*found;
}

void SessionsModel::select(qint64 id)
{
    if (!find(id))
        return;
    if (selectedSession_ && selectedSession_->id == id) {
        // A later load follows the router, so it must point where the person pointed last.
        router().selectedSessionId = id;
        return;
    }
    const std::weak_ptr<SessionsModel> weak = keep(this);
    context().leaving.leave([weak, id] {
        const std::shared_ptr<SessionsModel> model = weak.lock();
        const SessionSummary* session = model ? model->find(id) : nullptr;
        if (!session)
            return;
        model->router().selectedSessionId = id;
        model->setSelected(*session);
        emit model->selectionChanged();
    });
}

void SessionsModel::setSelected(const SessionSummary& session)
{
    if (!selectedSession_ || selectedSession_->id != session.id) {
        selectNone();
        openDetail(session.id);
    }
    selectedSession_ = session;
}

void SessionsModel::selectNone()
{
    if (detail_)
        detail_->close();
    detail_ = nullptr;
    selectedSession_ = std::nullopt;
}

void SessionsModel::openDetail(qint64 id)
{
    detail_ = std::make_shared<SessionDetailModel>(context(), id);
    connect(detail_.get(), &SessionDetailModel::changed, this, [this] { loadChange(); });
    connect(detail_.get(), &SessionDetailModel::deleted, this, [this, id] { remove(id); });
}

/// A session that has been deleted leaves the list at once, whatever becomes of the next load.
void SessionsModel::remove(qint64 id)
{
    sessions_.removeIf([id](const SessionSummary& session) { return session.id == id; });
    rows().remove(id);
    if (router().selectedSessionId.value() == id)
        router().selectedSessionId = std::nullopt;
    if (selectedSession_ && selectedSession_->id == id)
        selectNone();
    emit selectionChanged();
    loadChange();
}

std::optional<qint64> SessionsModel::selectedRow() const
{
    return selectedSession_ ? std::optional(selectedSession_->id) : std::nullopt;
}

void SessionsModel::refresh()
{
    launch(load());
    if (detail_)
        launch(detail_->load());
}

void SessionsModel::filterByStatus()
{
    const QString wanted = statusFilter.value().toLower();
    if (wanted.isEmpty())
        rows().setFilter({});
    else
        rows().setFilter([wanted](const QString& status) { return status == wanted; });
}

QList<SessionSummary> SessionsModel::filteredSessions() const
{
    QList<SessionSummary> filtered;
    filtered.reserve(rows().shown().size());
    for (const int row : rows().shown())
        filtered += sessions_.at(row);
    return filtered;
}
