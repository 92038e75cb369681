#include "Dashboards/BusinessDashboardView.h"

#include "Components/RowList.h"
#include "Dashboards/DashboardCard.h"

#include <QVBoxLayout>

using namespace Qt::StringLiterals;

BusinessDashboardView::BusinessDashboardView(std::shared_ptr<BusinessDashboardModel> model, QWidget* parent)
    : DashboardView(model, parent)
{
    RowListModel& rows = model->clientRows();
    const QString title = u"Recent Clients"_s;
    RowList* list = makeReadList(title, rows, u"person.fill"_s);
    auto* card = new DashboardCard(title, list, rows, u"No clients found."_s);
    adopt(card);
    column()->addWidget(card);
}
