#pragma once

#include <QWidget>

class MetricTile;
class QGridLayout;

/// Tiles of equal width in one row; in a large text size in several, so that every title can be read.
class TileRow : public QWidget
{
    Q_OBJECT

public:
    /// Takes the tiles over.
    explicit TileRow(const QList<MetricTile*>& tiles, QWidget* parent = nullptr);

    void setCompact(bool compact);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void arrange();
    int columnsIn(int width) const;

    QList<MetricTile*> tiles_;
    QGridLayout* grid_;
    int columns_ = 0;
};
