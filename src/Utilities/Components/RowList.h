#pragma once

#include "ListRowDelegate.h"

#include <QListView>

/// A list of rows: one can be selected, with the mouse or the arrow keys; Return or a double click opens it.
/// Rows that are only read are neither selected nor a stop of the Tab key.
/// Its model answers Qt::AccessibleTextRole with the row's title first.
class RowList : public QListView
{
    Q_OBJECT

public:
    /// \param label  its accessible name
    RowList(const QString& label, ListRowDelegate::Reader reader, const ListRowDelegate::Options& options,
        QWidget* parent = nullptr);

    /// Makes the list as high as its rows, for lists that scroll with their page. The page follows the
    /// current row while the list has the keyboard focus.
    void setShowsAllRows(bool showsAll);
    void setModel(QAbstractItemModel* model) override;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    void makeRoom();
    void showFocus(bool shows);

    ListRowDelegate* delegate_;
    bool showsAllRows_ = false;
};
