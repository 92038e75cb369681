#pragma once

#include "Components/RowList.h"
#include "Screen/RowListModel.h"

/// What a list draws for a row of a RowListModel.
ListRow listRow(const QModelIndex& index);

/// The shape of the rows beside a detail: three lines, the last with a symbol, the status and a chevron.
ListRowDelegate::Options recordRows();

/// A list of rows of which one is selected. The selection is the screen model's: the view asks for another
/// row when the person clicks or moves to it, and shows what it is told, whatever rows come and go. Rows that
/// are only passed, with an arrow key held down or the mouse button, are not asked for: just the one at which
/// the person stops.
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
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void rest();
    void showSelection();
    void restore();

    RowListModel& rows_;
    std::optional<qint64> selectedId_;
    std::optional<qint64> reached_; ///< the row that the person has come to and not been heard about
    bool moving_ = false; ///< whether an event is at work that may yet go on to another row
    bool showing_ = false;
    int placeBeforeReset_ = 0;
};
