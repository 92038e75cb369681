#pragma once

#include "Components/RowList.h"
#include "Screen/RowListModel.h"

/// What a list draws for a row of a RowListModel.
ListRow listRow(const QModelIndex& index);

/// The shape of the rows beside a detail: three lines, the last with a symbol, the status and a chevron.
ListRowDelegate::Options recordRows();

/// A list of rows of which one is selected. The selection is the screen model's: the view asks for another
/// row when the person clicks or moves to it, and shows what it is told, whatever rows come and go.
class RowListView : public RowList
{
    Q_OBJECT

public:
    /// \param name  what assistive technology calls the list
    /// The rows must outlive the view.
    RowListView(const QString& name, RowListModel& rows, const ListRowDelegate::Options& shape = recordRows(),
        QWidget* parent = nullptr);

    /// Shows the row of this record as the selected one; no row when it is not among those shown.
    void setSelectedId(std::optional<qint64> id);

signals:
    /// The person clicked a row or moved to it with the keyboard.
    void chosen(qint64 id);

protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void reset() override;

private:
    void showSelection();
    void restore();

    RowListModel& rows_;
    std::optional<qint64> selectedId_;
    bool showing_ = false;
    int placeBeforeReset_ = 0;
};
