#pragma once

#include "Dashboards/DashboardView.h"
#include "Dashboards/NotaryDashboardModel.h"

class QBoxLayout;
class RowListView;

/// The dashboard of a notary: assigned sessions and open calls, side by side where there is room. A click on
/// a row, or Return, opens its session.
class NotaryDashboardView : public DashboardView
{
    Q_OBJECT

public:
    explicit NotaryDashboardView(std::shared_ptr<NotaryDashboardModel> model, QWidget* parent = nullptr);

private:
    void addAssigned();
    void addOpenCalls();
    void addCard(
        const QString& title, QWidget* list, const QAbstractItemModel& rows, const QString& emptyText);
    void opensSessions(RowListView* list);
    void arrange(bool compact);

    std::shared_ptr<NotaryDashboardModel> model_;
    QBoxLayout* lists_;
};
