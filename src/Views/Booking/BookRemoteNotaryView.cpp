#include "Booking/BookRemoteNotaryView.h"

#include "AlertPresenter.h"
#include "Bindings.h"
#include "Booking/BookRemoteNotaryModel.h"
#include "Booking/BookingForm.h"
#include "Booking/SuccessCard.h"
#include "Components/WorkspaceHero.h"
#include "FileChooser.h"
#include "Launch.h"
#include "Page.h"
#include "PaneKeys.h"
#include "Spacing.h"

#include <QScrollBar>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

static void chooseBookingFiles(QWidget* over, std::function<void(QList<QUrl>)> chosen)
{
    const FileChooser::Texts texts{u"Choose Files"_s, {}};
    FileChooser::open(over, texts, std::move(chosen));
}

BookRemoteNotaryView::BookRemoteNotaryView(std::shared_ptr<BookRemoteNotaryModel> model, QWidget* parent)
    : QWidget(parent), chooseFiles(chooseBookingFiles), model_(std::move(model)),
      page_(new Page(BookingForm::widest, this)),
      hero_(new WorkspaceHero(u"Remote Notary"_s, u"Book a Session"_s, model_->heroSubtitle())),
      form_(new BookingForm(*model_, *page_)), success_(new SuccessCard)
{
    page_->addHeader(hero_);
    page_->column()->addWidget(form_);
    page_->column()->addWidget(success_);

    AuthManager& auth = model_->context().auth;
    follow(this, auth.activeRole, [this](AppRole) { hero_->setSubtitle(model_->heroSubtitle()); });
    follow(this, auth.user,
        [this](const std::optional<AuthUser>&) { hero_->setSubtitle(model_->heroSubtitle()); });
    follow(this, model_->successMessage, [this](const std::optional<QString>&) { showFormOrSuccess(); });

    connect(form_, &BookingForm::filesWanted, this, [this] {
        chooseFiles(this, [model = model_](const QList<QUrl>& files) { model->addRegularFiles(files); });
    });
    connect(form_, &BookingForm::filesDropped, model_.get(), &UploadsModel::addRegularFiles);
    connect(success_, &SuccessCard::sessionsWanted, this, [this] { model_->viewSessions(); });
    connect(success_, &SuccessCard::anotherWanted, this, [this] { model_->bookAnother(); });
}

BookRemoteNotaryView::~BookRemoteNotaryView()
{
    // What shows the model goes before it: this view may be the last to hold it.
    delete page_;
    // Nobody tells when a drag ends over an area that is gone.
    model_->isDropTarget = false;
}

void BookRemoteNotaryView::showFormOrSuccess()
{
    const std::optional<QString> message = model_->successMessage.value();
    if (message)
        success_->setMessage(*message);
    const std::optional<Qt::FocusReason> focus = PaneKeys::focusWithin(page_);
    form_->setVisible(!message);
    success_->setVisible(message.has_value());
    if (!isVisible())
        return;
    page_->verticalScrollBar()->setValue(0);
    if (focus && message)
        success_->focusFirstAction(*focus);
    else if (focus)
        form_->focusFirstField();
}

void BookRemoteNotaryView::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (std::exchange(wasShown_, true))
        return;
    // Only now is the window known that an alert goes over.
    presentAlerts(this, model_->alert, [this] {
        model_->dismissAlert();
        if (const std::optional<BookRemoteNotaryModel::Fault> fault = model_->takeFault())
            form_->leadTo(*fault);
    });
    launch(model_->prefill());
}

void BookRemoteNotaryView::resizeEvent(QResizeEvent*)
{
    form_->arrange(width());
    const int padding = width() < Spacing::compactBelow ? Spacing::pageCompact : Spacing::page;
    const int available = std::min(width() - 2 * padding, BookingForm::widest);
    const int spare = std::max(0, available - form_->widestNow());
    page_->column()->setContentsMargins(spare / 2, 0, spare - spare / 2, 0);
    page_->setGeometry(rect());
}
