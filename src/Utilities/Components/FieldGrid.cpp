#include "FieldGrid.h"

#include "LabeledField.h"
#include "Spacing.h"

#include <QGridLayout>

#include <algorithm>

static constexpr int wideFrom = 500;
/// Two of the longest captions, or a switch with its label, fit beside each other.
static constexpr int narrowFrom = 330;

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

/// No wider than the widest field, so that there can be too little room for two.
QSize FieldGrid::minimumSizeHint() const
{
    int widest = 0;
    for (const Cell& cell : cells_)
        widest = std::max(widest, cell.field->minimumSizeHint().width());
    return {widest, QWidget::minimumSizeHint().height()};
}

void FieldGrid::arrange()
{
    int place = 0;
    for (const Cell& cell : cells_) {
        const Share share = rows_ == Rows::wide ? cell.wide : rows_ == Rows::narrow ? cell.narrow : whole;
        // A caption of two lines would leave those beside it too high.
        if (auto* field = qobject_cast<LabeledField*>(cell.field))
            field->setCaptionWraps(rows_ == Rows::single);
        // Bottom edges agree, also beside a field that has no caption above it.
        grid_->addWidget(cell.field, place / whole, place % whole, 1, share, Qt::AlignBottom);
        place += share;
    }
}

void FieldGrid::resizeEvent(QResizeEvent*)
{
    Rows rows = Rows::wide;
    if (width() < Type::scaled(wideFrom))
        rows = width() < Type::scaled(narrowFrom) ? Rows::single : Rows::narrow;
    if (rows != std::exchange(rows_, rows))
        arrange();
}
