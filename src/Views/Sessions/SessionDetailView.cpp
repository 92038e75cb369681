#include "Sessions/SessionDetailView.h"

#include "AlertPresenter.h"
#include "Bindings.h"
#include "Components/EmptyStateView.h"
#include "Components/LoadingLine.h"
#include "Components/SecondaryButton.h"
#include "Launch.h"
#include "Layouts.h"
#include "Sessions/SessionDetailModel.h"
#include "Sessions/SessionDetailPage.h"
#include "Spacing.h"

#include <QStackedLayout>

#include <utility>

using namespace Qt::StringLiterals;

SessionDetailView::SessionDetailView(std::shared_ptr<SessionDetailModel> model, QWidget* parent)
    : QWidget(parent), model_(std::move(model)), states_(new QStackedLayout(this)), loading_(makeLoading()),
      missing_(makeMissing())
{
    states_->addWidget(loading_);
    states_->addWidget(missing_);
    connect(model_.get(), &SessionDetailModel::sessionChanged, this, &SessionDetailView::showState);
    presentAlerts(this, model_->alert, [model = model_] { model->dismissAlert(); });
    model_->beginView();
    follow(this, model_->isLoading, [this](bool) { showState(); });
}

SessionDetailView::~SessionDetailView()
{
    model_->endView();
    // What shows the model goes before it.
    delete page_;
}

void SessionDetailView::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    // Shown again with its window it is loaded together with its list.
    if (!std::exchange(wasShown_, true))
        launch(model_->load());
}

QWidget* SessionDetailView::makeLoading()
{
    auto* column = Layouts::column(0, {new LoadingLine(u"Loading session..."_s)});
    column->setContentsMargins(Spacing::page, Spacing::page, Spacing::page, Spacing::page);
    column->addStretch();
    return Layouts::holding(column);
}

EmptyStateView* SessionDetailView::makeMissing()
{
    auto* missing = new EmptyStateView(u"exclamationmark.triangle"_s, u"Session Not Found"_s,
        u"The selected session could not be loaded."_s);
    auto* again = new SecondaryButton(u"Try Again"_s, u"arrow.clockwise"_s);
    connect(again, &Button::clicked, this, [this] { launch(model_->load()); });
    missing->setActions(again);
    return missing;
}

void SessionDetailView::showState()
{
    if (model_->session() && !page_) {
        page_ = new SessionDetailPage(*model_);
        states_->addWidget(page_);
    }
    if (page_)
        states_->setCurrentWidget(page_);
    else
        states_->setCurrentWidget(model_->isLoading.value() ? loading_ : missing_);
}
