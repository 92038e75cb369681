#pragma once

#include "Dashboards/DashboardModel.h"
#include "Page.h"

class Button;
class DashboardCard;
class MetricTile;
class RowList;
class RowListModel;

/// What the dashboards of the three roles share: the header, the tiles, the shortcuts, and under them cards
/// with short lists. It loads each time it is shown, be it by its window, and again with F5.
class DashboardView : public Page
{
    Q_OBJECT

public:
    ~DashboardView() override;

protected:
    explicit DashboardView(std::shared_ptr<DashboardModel> model, QWidget* parent = nullptr);

    /// Keeps a card in step with the load and with the width of the page.
    void adopt(DashboardCard* card);
    /// Rows that are only read.
    /// \param chip  symbol before the texts of every row; none when empty
    static RowList* makeReadList(const QString& name, RowListModel& rows, const QString& chip = {});

    void showEvent(QShowEvent* event) override;

private:
    void addTiles();
    void addShortcuts();
    void updateTiles();

    std::shared_ptr<DashboardModel> model_;
    QList<MetricTile*> tiles_;
};
