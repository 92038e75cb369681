#include "Dashboards/DashboardView.h"

#include "AlertPresenter.h"
#include "Bindings.h"
#include "Components/Button.h"
#include "Components/MetricTile.h"
#include "Components/RowList.h"
#include "Components/WorkspaceHero.h"
#include "Dashboards/DashboardCard.h"
#include "Dashboards/ShortcutRow.h"
#include "Dashboards/TileRow.h"
#include "Launch.h"
#include "Lists/RowListView.h"
#include "RefreshKeys.h"

#include <QShowEvent>
#include <QVBoxLayout>

static constexpr int widest = 1120;

DashboardView::DashboardView(std::shared_ptr<DashboardModel> model, QWidget* parent)
    : Page(widest, parent), model_(std::move(model))
{
    model_->beginView();
    keepSpacing();
    const DashboardModel::Texts texts = model_->texts();
    column()->addWidget(new WorkspaceHero({}, texts.title, texts.subtitle));
    addTiles();
    addShortcuts();
    connect(model_.get(), &DashboardModel::loaded, this, &DashboardView::updateTiles);
    presentAlerts(this, model_->alert, [model = model_] { model->dismissAlert(); });
    onRefreshKeys(this, [this] { launch(model_->load()); });
}

DashboardView::~DashboardView()
{
    model_->endView();
}

void DashboardView::showEvent(QShowEvent* event)
{
    Page::showEvent(event);
    if (!event->spontaneous())
        launch(model_->load());
}

void DashboardView::addTiles()
{
    for (const DashboardModel::Tile& tile : model_->tiles())
        tiles_ += new MetricTile(tile.title, tile.value, tile.systemImage);
    auto* row = new TileRow(tiles_);
    connect(this, &Page::compactChanged, row, &TileRow::setCompact);
    row->setCompact(isCompact());
    column()->addWidget(row);
}

void DashboardView::updateTiles()
{
    const QList<DashboardModel::Tile> tiles = model_->tiles();
    for (qsizetype i = 0; i < tiles_.size(); ++i)
        tiles_.at(i)->setValue(tiles.at(i).value);
}

void DashboardView::addShortcuts()
{
    const QList<Shortcut> shortcuts = model_->shortcuts();
    auto* row = new ShortcutRow(shortcuts);
    connect(row, &ShortcutRow::chosen, this, [this](const Shortcut& shortcut) { model_->run(shortcut); });
    for (int place = 0; place < int(shortcuts.size()); ++place) {
        if (shortcuts.at(place).section)
            continue;
        Button* refresh = row->buttonAt(place);
        follow(this, model_->isLoading, [refresh](bool loading) { refresh->setLoading(loading); });
    }
    column()->addWidget(row);
}

void DashboardView::adopt(DashboardCard* card)
{
    follow(card, model_->isLoading, [card](bool loading) { card->setLoading(loading); });
    connect(this, &Page::compactChanged, card, &DashboardCard::setCompact);
    card->setCompact(isCompact());
}

RowList* DashboardView::makeReadList(const QString& name, RowListModel& rows, const QString& chip)
{
    ListRowDelegate::Options shape;
    shape.textLines = 1;
    shape.chip = !chip.isEmpty();
    shape.chevron = false;
    shape.pill = ListRowDelegate::Pill::centred;
    shape.padding = 8;
    shape.onlyRead = true;
    const auto read = [chip](const QModelIndex& index) {
        ListRow row = listRow(index);
        row.chip = chip;
        return row;
    };
    auto* list = new RowList(name, read, shape);
    list->setShowsAllRows(true);
    list->setModel(&rows);
    return list;
}
