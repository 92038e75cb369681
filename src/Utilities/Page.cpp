#include "Page.h"

#include "Spacing.h"

#include <QVBoxLayout>

Page::Page(int maxWidth, QWidget* parent)
    : QScrollArea(parent), maxWidth_(maxWidth), content_(new QWidget), column_(new QVBoxLayout)
{
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    // The arrow keys of the page itself scroll through its bar; the page is no stop for Tab.
    setFocusPolicy(Qt::NoFocus);

    auto* outer = new QVBoxLayout(content_);
    outer->setContentsMargins(0, 0, 0, 0);
    outer->addLayout(column_);
    outer->addStretch();
    setWidget(content_);
    // The content background shows through.
    viewport()->setAutoFillBackground(false);
    content_->setAutoFillBackground(false);
    arrange();
}

void Page::resizeEvent(QResizeEvent* event)
{
    QScrollArea::resizeEvent(event);
    arrange();
}

void Page::arrange()
{
    const bool compact = width() < Spacing::compactBelow;
    const int padding = compact ? Spacing::pageCompact : Spacing::page;
    const int side = std::max(padding, (viewport()->width() - maxWidth_) / 2);
    content_->layout()->setContentsMargins(side, padding, side, padding);
    column_->setSpacing(compact ? Spacing::betweenCardsCompact : Spacing::betweenCards);
    if (compact != std::exchange(compact_, compact))
        emit compactChanged(compact_);
}
