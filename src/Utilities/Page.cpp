#include "Page.h"

#include "Components/Card.h"
#include "Spacing.h"

#include <QVBoxLayout>

Page::Page(int maxWidth, Place place, QWidget* parent)
    : ScrollPage(new QWidget, parent), maxWidth_(maxWidth), place_(place), column_(new QVBoxLayout)
{
    auto* outer = new QVBoxLayout(widget());
    outer->setContentsMargins(0, 0, 0, 0);
    outer->addLayout(column_);
    // All of what is left over: a card whose lines may stretch is to stay as high as they are.
    outer->addStretch(1);
    arrange();
}

void Page::setMaxWidth(int maxWidth)
{
    if (maxWidth == std::exchange(maxWidth_, maxWidth))
        return;
    arrange();
}

void Page::setPlace(Place place)
{
    if (place == std::exchange(place_, place))
        return;
    arrange();
}

void Page::keepSpacing()
{
    keepsSpacing_ = true;
    arrange();
}

void Page::addHeader(QWidget* header)
{
    header_ = header;
    column_->addWidget(header);
    arrange();
}

void Page::fit(Card* card)
{
    cards_.removeAll(nullptr);
    cards_ += card;
    arrange();
}

void Page::resizeEvent(QResizeEvent* event)
{
    ScrollPage::resizeEvent(event);
    arrange();
}

void Page::arrange()
{
    const bool isDetail = place_ != Place::screen;
    const int compactBelow = isDetail ? Spacing::compactDetailBelow : Spacing::compactBelow;
    const bool compact = width() < Type::scaled(compactBelow);
    const int detail = place_ == Place::pane ? Spacing::pane : Spacing::detail;
    const int padding = isDetail ? (compact ? Spacing::detailCompact : detail)
                                 : (compact ? Spacing::pageCompact : Spacing::page);
    const int spare = std::max(0, viewport()->width() - 2 * padding - maxWidth_);
    const int before = isDetail ? 0 : spare / 2;
    widget()->layout()->setContentsMargins(padding + before, padding, padding + spare - before, padding);
    const bool closer = compact && !keepsSpacing_;
    column_->setSpacing(closer ? Spacing::betweenCardsCompact : Spacing::betweenCards);
    for (const QPointer<Card>& card : std::as_const(cards_)) {
        if (card)
            card->setPadding(compact ? Spacing::cardCompact : Spacing::card);
    }
    if (header_)
        header_->setContentsMargins(0, 0, 0, Spacing::betweenCards - column_->spacing());
    if (compact != std::exchange(compact_, compact))
        emit compactChanged(compact_);
}
