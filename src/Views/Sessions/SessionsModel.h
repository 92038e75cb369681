#pragma once

#include "Screen/RowListModel.h"
#include "Screen/ScreenModel.h"
#include "Sessions/SessionDetailModel.h"

/// The list of the sessions that the signed-in user may see in the active role, its search and status filter,
/// and the session chosen from it.
class SessionsModel : public ScreenModel
{
    Q_OBJECT

public:
    explicit SessionsModel(const ScreenContext& context);
    ~SessionsModel() override;

    struct StatusOption
    {
        QString value; ///< empty for all
        QString label;
    };
    /// The choices of the status picker, in its order.
    static const QList<StatusOption>& statuses();
    static QString searchPlaceholder();

    QProperty<bool> isLoading{false};
    QProperty<QString> search;
    QProperty<QString> statusFilter;

    /// The loaded sessions, latest first.
    const QList<SessionSummary>& sessions() const { return sessions_; }
    /// The sessions that pass both filters, in the order of sessions().
    QList<SessionSummary> filteredSessions() const;
    /// The rows of filteredSessions().
    RowListModel& rows() { return rows_; }

    const std::optional<SessionSummary>& selectedSession() const { return selectedSession_; }
    /// The detail of the selected session; null when none is selected.
    const std::shared_ptr<SessionDetailModel>& detail() const { return detail_; }
    /// Selects a loaded session once the selected one may be left; an unknown id changes nothing.
    void select(qint64 id);
    /// What would be lost with the selected session's detail.
    LeaveGuard::Unfinished unfinished() const;

    /// What the list is about, under its title.
    QString subtitle() const;

    /// Loads the list for the active role. The newest load wins; a failed one leaves the list as it was.
    QCoro::Task<> load();
    /// Loads the list and the selected session again.
    void refresh();

signals:
    /// Another session is selected, or the same one with other contents.
    void selectionChanged();

private:
    /// The sessions in display order with their rows.
    struct Loaded
    {
        QList<SessionSummary> sessions;
        RowListModel::Content rows;
    };
    static Loaded prepare(QList<SessionSummary> received);
    void show(Loaded loaded);
    void setSelected(const SessionSummary& session);
    void selectNone();
    void openDetail(qint64 id);
    void remove(qint64 id);
    void filterByStatus();
    void roleChanged();
    const SessionSummary* find(qint64 id) const;

    QList<SessionSummary> sessions_;
    std::optional<SessionSummary> selectedSession_;
    std::shared_ptr<SessionDetailModel> detail_;
    RowListModel rows_;
    Turns loads_;
    QPropertyNotifier onSearch_;
    QPropertyNotifier onStatusFilter_;
    QPropertyNotifier onRole_;
};
