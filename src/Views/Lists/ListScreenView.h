#pragma once

#include "Lists/ListDetailView.h"
#include "Screen/ListScreenModel.h"

#include <functional>

/// A screen that works through records: the list with its search, and the selected record beside it.
class ListScreenView : public QWidget
{
    Q_OBJECT

public:
    /// Makes what is shown beside the list: the detail of the selected record, or a word about selecting one.
    using MakeDetail = std::function<QWidget*()>;

    /// Loads the list.
    ListScreenView(std::shared_ptr<ListScreenModel> model, const ListDetailView::Texts& texts,
        const ListRowDelegate::Options& rowShape, MakeDetail makeDetail, QWidget* parent = nullptr);
    ~ListScreenView() override;

protected:
    ListDetailView* lists() const { return lists_; }

private:
    void addShortcuts();
    void choose(qint64 row);
    void showSelection();

    std::shared_ptr<ListScreenModel> model_;
    std::shared_ptr<EditPaneModel> shown_; ///< whose detail is on screen
    MakeDetail makeDetail_;
    ListDetailView* lists_;
};
