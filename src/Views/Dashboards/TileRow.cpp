#include "Dashboards/TileRow.h"

#include "Components/MetricTile.h"

#include <QGridLayout>

static constexpr int between = 12;

TileRow::TileRow(const QList<MetricTile*>& tiles, QWidget* parent)
    : QWidget(parent), tiles_(tiles), grid_(new QGridLayout(this))
{
    grid_->setContentsMargins(0, 0, 0, 0);
    grid_->setSpacing(between);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Minimum);
    arrange();
}

void TileRow::setCompact(bool compact)
{
    for (MetricTile* tile : tiles_)
        tile->setCompact(compact);
    arrange();
}

void TileRow::resizeEvent(QResizeEvent*)
{
    arrange();
}

int TileRow::columnsIn(int width) const
{
    int widest = 0;
    for (const MetricTile* tile : tiles_)
        widest = qMax(widest, tile->sizeHint().width());
    int columns = int(tiles_.size());
    const auto leavesOneAlone = [this](int count) { return count > 1 && tiles_.size() % count == 1; };
    while (columns > 1 && (columns * (widest + between) - between > width || leavesOneAlone(columns)))
        --columns;
    return columns;
}

void TileRow::arrange()
{
    const int columns = columnsIn(width());
    if (columns == std::exchange(columns_, columns))
        return;
    for (int place = 0; place < int(tiles_.size()); ++place) {
        grid_->addWidget(tiles_.at(place), place / columns, place % columns);
        grid_->setColumnStretch(place, place < columns ? 1 : 0);
    }
}
