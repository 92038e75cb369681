#include "Lists/ListScreenView.h"

#include "AlertPresenter.h"
#include "Bindings.h"
#include "Components/SearchField.h"
#include "Launch.h"
#include "Layouts.h"
#include "Lists/RowListView.h"
#include "RefreshKeys.h"

#include <QShortcut>
#include <QShowEvent>

#include <utility>

ListScreenView::ListScreenView(std::shared_ptr<ListScreenModel> model, const ListDetailView::Texts& texts,
    const ListRowDelegate::Options& rowShape, MakeDetail makeDetail, QWidget* parent)
    : QWidget(parent), model_(std::move(model)), makeDetail_(std::move(makeDetail)),
      lists_(new ListDetailView(texts, model_->rows(), rowShape))
{
    model_->beginView();
    setLayout(Layouts::column(0, {lists_}));
    bind(lists_->searchField(), model_->search);
    addShortcuts();
    follow(this, model_->isLoading, [this](bool loading) { lists_->setLoading(loading); });
    connect(lists_->list(), &RowListView::chosen, this, &ListScreenView::choose);
    connect(model_.get(), &ListScreenModel::selectionChanged, this, &ListScreenView::showSelection);
    presentAlerts(this, model_->alert, [model = model_] { model->dismissAlert(); });
    const std::weak_ptr<ListScreenModel> weak = model_;
    model_->context().leaving.watch(this, [weak] {
        const std::shared_ptr<ListScreenModel> watched = weak.lock();
        return watched ? watched->unfinished() : LeaveGuard::Unfinished::nothing;
    });
    showSelection();
}

ListScreenView::~ListScreenView()
{
    // A list that loses the focus as it goes still asks for the row that the person had come to.
    lists_->list()->disconnect(this);
    model_->endView();
}

void ListScreenView::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (event->spontaneous())
        return;
    // The selected record is loaded by its own view when that is shown first.
    if (std::exchange(wasShown_, true))
        model_->refresh();
    else
        launch(model_->load());
}

void ListScreenView::addShortcuts()
{
    onRefreshKeys(this, [this] { model_->refresh(); });
    connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, this, [this] {
        lists_->searchField()->setFocus(Qt::ShortcutFocusReason);
        lists_->searchField()->selectAll();
    });
}

void ListScreenView::choose(qint64 row)
{
    model_->select(row);
    // Where the person is asked first, the selection is still the one before.
    lists_->list()->setSelectedId(model_->selectedRow());
}

void ListScreenView::showSelection()
{
    lists_->list()->setSelectedId(model_->selectedRow());
    const bool isShown = lists_->detail() && shown_ == model_->pane();
    shown_ = model_->pane();
    if (!isShown)
        lists_->setDetail(makeDetail_());
}
