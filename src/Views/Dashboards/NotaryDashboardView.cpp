#include "Dashboards/NotaryDashboardView.h"

#include "Dashboards/DashboardCard.h"
#include "Dashboards/OpenCallList.h"
#include "Layouts.h"
#include "Lists/RowListView.h"

using namespace Qt::StringLiterals;

NotaryDashboardView::NotaryDashboardView(std::shared_ptr<NotaryDashboardModel> model, QWidget* parent)
    : DashboardView(model, parent), model_(std::move(model)), lists_(Layouts::row(Spacing::betweenCards))
{
    addAssigned();
    addOpenCalls();
    column()->addLayout(lists_);
    connect(this, &Page::compactChanged, this, &NotaryDashboardView::arrange);
    arrange(isCompact());
}

void NotaryDashboardView::addAssigned()
{
    ListRowDelegate::Options shape;
    shape.chevron = false;
    shape.pill = ListRowDelegate::Pill::centred;
    shape.gap = 0;
    auto* list = new RowListView(u"Assigned Sessions"_s, model_->assignedRows(), shape);
    list->setShowsAllRows(true);
    opensSessions(list);
    addCard(list->accessibleName(), list, model_->assignedRows(), u"No assigned sessions."_s);
}

void NotaryDashboardView::addOpenCalls()
{
    auto* calls = new OpenCallList(model_);
    opensSessions(calls->list());
    addCard(calls->list()->accessibleName(), calls, model_->openCallRows(), u"No open calls."_s);
}

void NotaryDashboardView::addCard(
    const QString& title, QWidget* list, const QAbstractItemModel& rows, const QString& emptyText)
{
    auto* card = new DashboardCard(title, list, rows, emptyText);
    adopt(card);
    lists_->addWidget(card, 1, Qt::AlignTop);
}

void NotaryDashboardView::opensSessions(RowListView* list)
{
    const auto open
        = [this](const QModelIndex& row) { model_->open(row.data(RowListModel::IdRole).toLongLong()); };
    connect(list, &RowListView::clicked, this, open);
    connect(list, &RowListView::activated, this, open);
    connect(list, &RowListView::chosen, this, [this](qint64 id) { model_->select(id); });
    connect(model_.get(), &NotaryDashboardModel::selectionChanged, list, [this, list] {
        const std::optional<SessionSummary>& selected = model_->selected();
        list->setSelectedId(selected ? std::optional(selected->id) : std::nullopt);
    });
}

void NotaryDashboardView::arrange(bool compact)
{
    lists_->setDirection(compact ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
}
