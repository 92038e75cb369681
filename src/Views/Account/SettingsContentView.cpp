#include "Account/SettingsContentView.h"

#include "Account/SettingsCards.h"
#include "AlertPresenter.h"
#include "Bindings.h"
#include "Components/Card.h"
#include "Components/EmptyStateView.h"
#include "Components/PlainLabel.h"
#include "Components/PrimaryButton.h"
#include "Components/SecondaryButton.h"
#include "Components/TextField.h"
#include "FaultMark.h"
#include "Layouts.h"
#include "Page.h"
#include "PaneKeys.h"

#include <QHideEvent>
#include <QShowEvent>

using namespace Qt::StringLiterals;

static constexpr int widest = 1040;
static constexpr int signInWidth = 120;

SettingsContentView::SettingsContentView(std::shared_ptr<SettingsContentModel> model, QWidget* parent)
    : QStackedWidget(parent), model_(std::move(model))
{
    model_->beginView();
    addWidget(makeSignedOut());
    addWidget(makeSignedIn());
    follow(this, model_->context().auth.user,
        [this](const std::optional<AuthUser>& user) { showUser(user.has_value()); });
    presentAlerts(this, model_->alert, [this] {
        model_->dismissAlert();
        const QString fault = model_->takePasswordFault();
        if (!fault.isEmpty())
            FaultMark::leadTo(newPassword_, fault);
    });
    const std::weak_ptr<SettingsContentModel> weak = model_;
    model_->context().leaving.watch(this, [weak] {
        const std::shared_ptr<SettingsContentModel> watched = weak.lock();
        return watched ? watched->unfinished() : LeaveGuard::Unfinished::nothing;
    });
}

SettingsContentView::~SettingsContentView()
{
    model_->endView();
}

void SettingsContentView::showUser(bool isSignedIn)
{
    setCurrentIndex(isSignedIn ? 1 : 0);
}

void SettingsContentView::showEvent(QShowEvent* event)
{
    QStackedWidget::showEvent(event);
    if (!event->spontaneous())
        model_->appeared();
}

void SettingsContentView::hideEvent(QHideEvent* event)
{
    QStackedWidget::hideEvent(event);
    if (!event->spontaneous())
        model_->disappeared();
}

QWidget* SettingsContentView::makeSignedOut()
{
    auto* prompt = new EmptyStateView(u"person.crop.circle"_s, u"Sign in required"_s,
        u"Sign in to update your profile, change your password, and access your saved sessions."_s);
    auto* signIn = new PrimaryButton(u"Sign In"_s);
    signIn->setMinimumWidth(Type::scaled(signInWidth));
    connect(signIn, &Button::clicked, this, [model = model_] { model->signIn(); });
    prompt->setActions(signIn);
    return prompt;
}

QWidget* SettingsContentView::makeSignedIn()
{
    Card* profile = SettingsCards::profile(*model_);
    // Not on the button that signs out.
    PaneKeys::setEntry(this, profile);
    const QList<Card*> person{
        SettingsCards::account(*model_), profile, SettingsCards::password(*model_, newPassword_)};
    const QList<Card*> program{SettingsCards::preferences(*model_), SettingsCards::about(*model_)};
    auto* columns = new QBoxLayout(QBoxLayout::TopToBottom);
    auto* page = new Page(widest);
    page->addHeader(makeHeader());
    page->column()->addLayout(columns);
    QList<QBoxLayout*> layouts{columns};
    for (const QList<Card*>& cards : {person, program}) {
        auto* column = Layouts::column(0);
        for (Card* card : cards) {
            column->addWidget(card);
            page->fit(card);
        }
        column->addStretch();
        columns->addLayout(column, 1);
        layouts += column;
    }
    const auto arrange = [page, layouts](bool compact) {
        layouts.constFirst()->setDirection(compact ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
        for (QBoxLayout* layout : layouts)
            layout->setSpacing(page->column()->spacing());
    };
    arrange(page->isCompact());
    connect(page, &Page::compactChanged, this, arrange);
    return page;
}

QWidget* SettingsContentView::makeHeader()
{
    auto* signOut = new SecondaryButton(u"Sign Out"_s, u"rectangle.portrait.and.arrow.right"_s);
    connect(signOut, &Button::clicked, this, [model = model_] { model->signOut(); });
    auto* row = Layouts::row(Spacing::buttons);
    row->addLayout(
        Layouts::column(4,
            {new PlainLabel(u"Profile & Preferences"_s, Type::title),
                new PlainLabel(u"Keep your desktop profile, password, and active workspace up to date."_s,
                    Type::body, Brand::steel)}),
        1);
    // Beside lines that large text makes many, its place is with the first of them.
    row->addWidget(signOut, 0, Type::factor() > 1 ? Qt::AlignTop : Qt::AlignVCenter);
    return Layouts::holding(row);
}
