#pragma once

#include "Lists/RowListView.h"

#include <QWidget>

class EmptyStateView;
class LoadingLine;
class PlainLabel;
class QHBoxLayout;
class QStackedLayout;
class SearchField;

/// A list with its search, and beside it what is selected in it: the arrangement of every screen
/// that works through records.
class ListDetailView : public QWidget
{
    Q_OBJECT

public:
    struct Texts
    {
        QString title;
        QString searchPlaceholder;
        QString loading;
        QString emptyIcon;
        QString emptyTitle;
        QString emptyMessage;
    };

    /// The rows must outlive the view.
    ListDetailView(const Texts& texts, RowListModel& rows, const ListRowDelegate::Options& rowShape,
        QWidget* parent = nullptr);

    void setSubtitle(const QString& subtitle);
    /// Puts a button beside the title.
    void addAction(QWidget* button);
    /// Puts a widget, such as a picker, under the search field.
    void addFilter(QWidget* filter);
    /// While loading, a list without rows says so; one with rows keeps showing them.
    void setLoading(bool loading);
    /// Takes the detail's place; the detail shown before is deleted. A focus in that one goes to the list, or
    /// to the search where the list is empty.
    void setDetail(QWidget* detail);
    /// Null before the first one.
    QWidget* detail() const { return detail_; }

    SearchField* searchField() const { return search_; }
    RowListView* list() const { return list_; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    QWidget* makeHeader();
    QWidget* makeListArea(const Texts& texts);
    void arrangeTitle();
    void updateListArea();
    void focusList();
    void arrange();

    QWidget* pane_;
    PlainLabel* title_;
    QHBoxLayout* titleRow_;
    PlainLabel* subtitle_;
    SearchField* search_;
    QHBoxLayout* filters_;
    QList<QWidget*> actions_;
    RowListView* list_;
    QStackedLayout* listArea_;
    QWidget* loadingPlace_;
    EmptyStateView* emptyPlace_;
    QWidget* detail_ = nullptr;
    bool loading_ = false;
};
