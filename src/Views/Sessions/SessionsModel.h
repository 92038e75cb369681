#pragma once

#include "Screen/ListScreenModel.h"
#include "Sessions/SessionDetailModel.h"

/// The list of the sessions that the signed-in user may see in the active role, its search and status filter,
/// and the session chosen from it.
class SessionsModel : public ListScreenModel
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

    /// The role whose sessions these are: the active one of whoever is signed in.
    QProperty<AppRole> role;
    QProperty<QString> statusFilter;

    /// The loaded sessions, latest first.
    const QList<SessionSummary>& sessions() const { return sessions_; }
    /// The sessions that pass both filters, in the order of sessions().
    QList<SessionSummary> filteredSessions() const;

    const std::optional<SessionSummary>& selectedSession() const { return selectedSession_; }
    /// The detail of the selected session; null when none is selected.
    const std::shared_ptr<SessionDetailModel>& detail() const { return detail_; }
    std::shared_ptr<EditPaneModel> pane() const override { return detail_; }
    std::optional<qint64> selectedRow() const override;
    void select(qint64 id) override;

    /// What the list is about, under its title.
    QString subtitle() const;

    void refresh() override;

protected:
    QCoro::Task<Store> fetch(APIClient client, QString idToken) override;
    QString loadFailureTitle() const override;

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
    void followRole();
    const SessionSummary* find(qint64 id) const;

    QList<SessionSummary> sessions_;
    std::optional<SessionSummary> selectedSession_;
    std::shared_ptr<SessionDetailModel> detail_;
    QPropertyNotifier onStatusFilter_;
    QPropertyNotifier onUser_;
    QPropertyNotifier onActiveRole_;
};
