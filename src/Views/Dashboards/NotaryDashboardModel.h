#pragma once

#include "Dashboards/DashboardModel.h"

#include <QSet>

/// What a notary sees first: the assigned sessions, and the open calls that can be accepted. One session of
/// the two lists can be selected; it stays selected when it moves from one to the other.
class NotaryDashboardModel : public DashboardModel
{
    Q_OBJECT

public:
    using DashboardModel::DashboardModel;

    Texts texts() const override;
    QList<Tile> tiles() const override;
    QList<Shortcut> shortcuts() const override;

    const QList<SessionSummary>& assignments() const { return assignments_; }
    const QList<SessionSummary>& openCalls() const { return openCalls_; }
    RowListModel& assignedRows() { return assignedRows_; }
    RowListModel& openCallRows() { return openCallRows_; }

    const std::optional<SessionSummary>& selected() const { return selected_; }
    /// Selects a session of either list; an unknown id changes nothing.
    void select(qint64 id);
    /// Goes to a session in the sessions screen.
    void open(qint64 id);

    /// Accepts an open call, then loads both lists again; nothing changes before that. A call that is being
    /// accepted is not accepted a second time.
    QCoro::Task<> accept(qint64 id);
    bool isAccepting(qint64 id) const { return accepting_.contains(id); }

signals:
    void selectionChanged();
    /// Another set of calls is being accepted.
    void acceptingChanged();

protected:
    QCoro::Task<Store> fetch(APIClient client, QString idToken) override;

private:
    struct Lists;
    void show(const Lists& lists);
    const SessionSummary* find(qint64 id) const;

    QList<SessionSummary> assignments_;
    QList<SessionSummary> openCalls_;
    std::optional<SessionSummary> selected_;
    QSet<qint64> accepting_;
    RowListModel assignedRows_;
    RowListModel openCallRows_;
};
