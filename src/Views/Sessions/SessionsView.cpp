#include "Sessions/SessionsView.h"

#include "AlertPresenter.h"
#include "Bindings.h"
#include "Components/ComboBox.h"
#include "Components/EmptyStateView.h"
#include "Components/LabeledField.h"
#include "Components/SearchField.h"
#include "Launch.h"
#include "Layouts.h"
#include "Lists/ListDetailView.h"
#include "Lists/RowListView.h"
#include "RefreshKeys.h"
#include "Sessions/SessionDetailView.h"

#include <QShortcut>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

static ListDetailView::Texts texts()
{
    return {u"Sessions"_s, SessionsModel::searchPlaceholder(), u"Loading sessions..."_s,
        u"doc.text.magnifyingglass"_s, u"No Sessions Found"_s,
        u"Book a remote notary session or adjust your search filters."_s};
}

SessionsView::SessionsView(std::shared_ptr<SessionsModel> model, QWidget* parent)
    : QWidget(parent), model_(std::move(model)), lists_(new ListDetailView(texts(), model_->rows()))
{
    setLayout(Layouts::column(0, {lists_}));
    bind(lists_->searchField(), model_->search);
    addStatusPicker();
    addShortcuts();
    follow(this, model_->isLoading, [this](bool loading) { lists_->setLoading(loading); });
    follow(this, model_->context().auth.activeRole,
        [this](AppRole) { lists_->setSubtitle(model_->subtitle()); });
    connect(lists_->list(), &RowListView::chosen, this, &SessionsView::choose);
    connect(model_.get(), &SessionsModel::selectionChanged, this, &SessionsView::showSelection);
    presentAlerts(this, model_->alert, [model = model_] { model->dismissAlert(); });
    const std::weak_ptr<SessionsModel> weak = model_;
    model_->context().leaving.watch(this, [weak] {
        const std::shared_ptr<SessionsModel> watched = weak.lock();
        return watched ? watched->unfinished() : LeaveGuard::Unfinished::nothing;
    });
    showSelection();
    launch(model_->load());
}

void SessionsView::addStatusPicker()
{
    QList<ComboBox::Option> options;
    for (const SessionsModel::StatusOption& status : SessionsModel::statuses())
        options += {status.label, status.value};
    auto* picker = new ComboBox(options);
    bind(picker, model_->statusFilter);
    lists_->addFilter(new LabeledField(u"Status"_s, picker, LabeledField::Placement::beside));
}

void SessionsView::addShortcuts()
{
    onRefreshKeys(this, [this] { model_->refresh(); });
    connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, this, [this] {
        lists_->searchField()->setFocus(Qt::ShortcutFocusReason);
        lists_->searchField()->selectAll();
    });
}

void SessionsView::choose(qint64 id)
{
    model_->select(id);
    // Where the person is asked first, the selection is still the one before.
    showSelectedRow();
}

void SessionsView::showSelectedRow()
{
    const std::optional<SessionSummary>& selected = model_->selectedSession();
    lists_->list()->setSelectedId(selected ? std::optional(selected->id) : std::nullopt);
}

void SessionsView::showSelection()
{
    showSelectedRow();
    const bool isShown = lists_->detail() && shown_ == model_->detail();
    shown_ = model_->detail();
    if (isShown)
        return;
    if (shown_)
        lists_->setDetail(new SessionDetailView(shown_));
    else
        lists_->setDetail(new EmptyStateView(u"hand.point.left.fill"_s, u"Select a Session"_s,
            u"Choose a session from the list to view details, messages, and admin or notary controls."_s));
}
