#include "EmptyStateView.h"

#include "Emblem.h"
#include "Layouts.h"
#include "PlainLabel.h"
#include "Spacing.h"
#include "Surface.h"

#include <algorithm>

namespace {

constexpr int widestText = 360;
constexpr int margin = 24;
constexpr int cardAcross = 48;
constexpr int cardDown = 40;
constexpr int cardEdge = 1;
constexpr int underEmblem = 16;
constexpr int aboveActions = 20;

/// A widget that holds the block, for the layout around it to place.
QWidget* panelFor(QVBoxLayout* block, EmptyStateView::Look look)
{
    if (look == EmptyStateView::Look::plain)
        return Layouts::holding(block);
    auto* card = new Surface(Surface::Kind::card, 0);
    card->content()->setContentsMargins(
        cardAcross + cardEdge, cardDown + cardEdge, cardAcross + cardEdge, cardDown + cardEdge);
    card->add(block);
    return card;
}

} // namespace

EmptyStateView::EmptyStateView(
    const QString& systemImage, const QString& title, const QString& message, Look look, QWidget* parent)
    : QWidget(parent), look_(look), emblem_(new Emblem(systemImage)),
      title_(new PlainLabel(title, Type::heading)),
      message_(new PlainLabel(message, Type::body, Brand::steel)),
      texts_(Layouts::holding(Layouts::column(4, {title_, message_}))), block_(Layouts::column(0)),
      counterweight_(new QSpacerItem(0, 0, QSizePolicy::Minimum, QSizePolicy::Maximum))
{
    title_->setAlignment(Qt::AlignHCenter);
    message_->setAlignment(Qt::AlignHCenter);
    block_->addWidget(emblem_, 0, Qt::AlignHCenter);
    block_->addSpacing(underEmblem);
    auto* centred = Layouts::row(0);
    centred->addStretch(1);
    centred->addWidget(texts_, 1000);
    centred->addStretch(1);
    block_->addLayout(centred);

    auto* across = Layouts::row(0);
    across->addStretch(1);
    across->addWidget(panelFor(block_, look), look == Look::plain ? 1000 : 0);
    across->addStretch(1);
    auto* column = Layouts::column(0);
    column->setContentsMargins(margin, margin, margin, margin);
    column->addStretch();
    column->addLayout(across);
    column->addStretch();
    column->addSpacerItem(counterweight_);
    setLayout(column);
    fitTexts();
}

void EmptyStateView::setSystemImage(const QString& symbol)
{
    emblem_->setSystemImage(symbol);
}

void EmptyStateView::setTitle(const QString& title)
{
    title_->setText(title);
    fitTexts();
}

void EmptyStateView::setMessage(const QString& message)
{
    message_->setText(message);
    fitTexts();
}

void EmptyStateView::setActions(QWidget* actions)
{
    actions_ = actions;
    block_->addSpacing(aboveActions);
    block_->addWidget(actions, 0, Qt::AlignHCenter);
}

void EmptyStateView::centreOn(const QWidget* pane)
{
    pane_ = pane;
    balance();
}

void EmptyStateView::resizeEvent(QResizeEvent*)
{
    balance();
}

/// No wider than they need, so that a card closes around them.
void EmptyStateView::fitTexts()
{
    const int natural = std::max(title_->sizeHint().width(), message_->sizeHint().width());
    texts_->setMaximumWidth(std::min(natural, Type::scaled(widestText)));
    balance();
}

/// What the view asks for, with its symbol.
int EmptyStateView::wholeHeight() const
{
    const int across = margin + (look_ == Look::card ? cardAcross + cardEdge : 0);
    const int down = margin + (look_ == Look::card ? cardDown + cardEdge : 0);
    const int textWidth = std::min(width() - 2 * across, texts_->maximumWidth());
    const int actions = actions_ ? aboveActions + actions_->sizeHint().height() : 0;
    return 2 * down + emblem_->sizeHint().height() + underEmblem + texts_->heightForWidth(textWidth)
        + actions;
}

/// Where there is too little room for all, the words matter more than the symbol.
void EmptyStateView::balance()
{
    const int spare = height() - wholeHeight();
    emblem_->setVisible(spare >= 0);
    if (!pane_ || !pane_->isAncestorOf(this))
        return;
    const int above = mapTo(pane_, QPoint()).y();
    counterweight_->changeSize(
        0, std::clamp(above, 0, std::max(0, spare)), QSizePolicy::Minimum, QSizePolicy::Maximum);
    layout()->invalidate();
}
