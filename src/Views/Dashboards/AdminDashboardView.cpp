#include "Dashboards/AdminDashboardView.h"

#include "Components/QuietButton.h"
#include "Components/RowList.h"
#include "Dashboards/DashboardCard.h"

#include <QVBoxLayout>

using namespace Qt::StringLiterals;

AdminDashboardView::AdminDashboardView(std::shared_ptr<AdminDashboardModel> model, QWidget* parent)
    : DashboardView(model, parent)
{
    RowListModel& rows = model->recentRows();
    const QString title = u"Recent Remote Sessions"_s;
    auto* card = new DashboardCard(title, makeReadList(title, rows), rows, u"No remote sessions found."_s);
    auto* viewAll = card->addAction(u"View All"_s);
    connect(viewAll, &Button::clicked, this, [model] { model->viewAllSessions(); });
    adopt(card);
    column()->addWidget(card);
}
