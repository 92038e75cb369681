#include "Sessions/SessionDetailPage.h"

#include "Bindings.h"
#include "Components/QuestionDialog.h"
#include "Components/SecondaryButton.h"
#include "Launch.h"
#include "Layouts.h"
#include "Lists/WorkButtons.h"
#include "Sessions/SessionControls.h"
#include "Sessions/SessionDetailModel.h"
#include "Sessions/SessionDocumentsCard.h"
#include "Sessions/SessionMessagesCard.h"
#include "Sessions/SessionSummaryCard.h"

namespace {

constexpr int columnWidest = 760;
constexpr int twoColumnsFrom = 900;

} // namespace

SessionDetailPage::SessionDetailPage(SessionDetailModel& model, QWidget* parent)
    : Page(columnWidest, Place::detail, parent), model_(model), columns_(Layouts::column(0)),
      leading_(addColumn()), trailing_(addColumn())
{
    column()->addLayout(columns_);
    // Made in the order in which the Tab key goes through them.
    auto* summary = makeSummary();
    auto* notary = SessionControls::notary(model_);
    auto* admin = SessionControls::admin(model_);
    auto* messages = new SessionMessagesCard(model_.messages());
    add(leading_, summary);
    add(leading_, notary);
    add(leading_, admin);
    add(trailing_, messages);
    add(trailing_, new SessionDocumentsCard(model_.documents(), *this));

    const auto showControls = [this, notary, admin] {
        notary->setVisible(model_.hasNotaryControls());
        admin->setVisible(model_.hasAdminControls());
    };
    AuthManager& auth = model_.context().auth;
    follow(this, auth.user, [showControls](const std::optional<AuthUser>&) { showControls(); });
    follow(this, auth.activeRole, [showControls](AppRole) { showControls(); });
    connect(this, &Page::compactChanged, this, &SessionDetailPage::arrangeCards);
    arrangeCards();
}

SessionDetailPage::Column SessionDetailPage::addColumn()
{
    Column column{Layouts::column(0), new QSpacerItem(0, 0)};
    column.cards->addSpacerItem(column.end);
    columns_->addLayout(column.cards, 1);
    return column;
}

void SessionDetailPage::add(const Column& column, Card* card)
{
    column.cards->insertWidget(column.cards->count() - 1, card);
    cards_ += card;
}

Card* SessionDetailPage::makeSummary()
{
    auto* summary = new SessionSummaryCard;
    const auto show = [this, summary] {
        if (model_.session())
            summary->setSession(*model_.session());
    };
    show();
    connect(&model_, &SessionDetailModel::sessionChanged, summary, show);

    SecondaryButton* cancel = summary->cancelButton();
    showWork(cancel, model_, SessionDetailModel::Work::cancellation);
    connect(cancel, &Button::clicked, this, [this, cancel] {
        const auto* question = QuestionDialog::ask(cancel, SessionDetailModel::cancelQuestion());
        connect(question, &QDialog::accepted, this, [this] { launch(model_.cancel()); });
    });
    return summary;
}

void SessionDetailPage::resizeEvent(QResizeEvent* event)
{
    arrangeColumns();
    Page::resizeEvent(event);
}

void SessionDetailPage::arrangeColumns()
{
    const bool two = width() >= Type::scaled(twoColumnsFrom);
    const int between = two ? Spacing::betweenCards : Spacing::betweenCardsCompact;
    columns_->setSpacing(between);
    leading_.cards->setSpacing(between);
    trailing_.cards->setSpacing(between);
    columns_->setDirection(two ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
    for (const Column& column : {leading_, trailing_}) {
        // Beside a higher column the cards keep to the top.
        column.end->changeSize(0, 0, QSizePolicy::Minimum, two ? QSizePolicy::Expanding : QSizePolicy::Fixed);
        column.cards->invalidate();
    }
    setPlace(two ? Place::pane : Place::detail);
    setMaxWidth(two ? 2 * columnWidest + columns_->spacing() : columnWidest);
}

void SessionDetailPage::arrangeCards()
{
    for (Card* card : cards_)
        card->setPadding(isCompact() ? Spacing::cardCompact : Spacing::card);
}
