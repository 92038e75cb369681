#include "StackingRow.h"

#include "Layouts.h"
#include "Type.h"

#include <algorithm>

StackingRow::StackingRow(int across, int down, QWidget* parent)
    : QWidget(parent), row_(Layouts::row(across)), across_(across), down_(down)
{
    setLayout(row_);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Minimum);
}

void StackingRow::add(QWidget* widget, int stretch, Qt::Alignment alignment)
{
    row_->addWidget(widget, stretch, alignment);
}

void StackingRow::addStretch()
{
    row_->addStretch();
}

void StackingRow::setStackedBelow(int width)
{
    stackedBelow_ = width;
}

/// No wider than the widest of them, so that there can be too little room for all.
QSize StackingRow::minimumSizeHint() const
{
    int widest = 0;
    for (int place = 0; place < row_->count(); ++place)
        widest = std::max(widest, row_->itemAt(place)->minimumSize().width());
    return {widest, row_->minimumSize().height()};
}

void StackingRow::resizeEvent(QResizeEvent*)
{
    arrange();
}

/// What stretches gives way first, down to its least width.
void StackingRow::arrange()
{
    int needed = 0;
    int shown = 0;
    for (int place = 0; place < row_->count(); ++place) {
        QLayoutItem* item = row_->itemAt(place);
        if (item->isEmpty() || item->spacerItem())
            continue;
        const QSize size = row_->stretch(place) > 0 ? item->minimumSize() : item->sizeHint();
        needed += size.width() + (shown > 0 ? across_ : 0);
        ++shown;
    }
    const int least = std::max(needed, Type::scaled(stackedBelow_));
    const bool areBeside = least <= width();
    row_->setDirection(areBeside ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
    row_->setSpacing(areBeside ? across_ : down_);
}
