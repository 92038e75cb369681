#include "FieldGrid.h"

#include "Spacing.h"

#include <QGridLayout>

static constexpr int wideFrom = 500;

FieldGrid::FieldGrid(QWidget* parent) : QWidget(parent), grid_(new QGridLayout(this))
{
    grid_->setContentsMargins(0, 0, 0, 0);
    grid_->setHorizontalSpacing(Spacing::fieldsAcross);
    grid_->setVerticalSpacing(Spacing::fieldsDown);
    for (int column = 0; column < whole; ++column)
        grid_->setColumnStretch(column, 1);
}

void FieldGrid::add(QWidget* field, Share wide, Share narrow)
{
    cells_ += {field, wide, narrow};
    arrange();
}

void FieldGrid::arrange()
{
    int place = 0;
    for (const Cell& cell : cells_) {
        const Share share = wide_ ? cell.wide : cell.narrow;
        // Bottom edges agree, also beside a field that has no caption above it.
        grid_->addWidget(cell.field, place / whole, place % whole, 1, share, Qt::AlignBottom);
        place += share;
    }
}

void FieldGrid::resizeEvent(QResizeEvent*)
{
    const bool wide = width() >= Type::scaled(wideFrom);
    if (wide != std::exchange(wide_, wide))
        arrange();
}
