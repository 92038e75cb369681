#pragma once

#include "Lists/ListDetailView.h"
#include "Screen/ListScreenModel.h"

#include <functional>

/// A screen that works through records: the list with its search, and the selected record beside it. It loads
/// each time it is shown, be it by its window.
class ListScreenView : public QWidget
{
    Q_OBJECT

public:
    /// Makes what is shown beside the list: the detail of the selected record, or a word about selecting one.
    using MakeDetail = std::function<QWidget*()>;

    ListScreenView(std::shared_ptr<ListScreenModel> model, const ListDetailView::Texts& texts,
        const ListRowDelegate::Options& rowShape, MakeDetail makeDetail, QWidget* parent = nullptr);
    ~ListScreenView() override;

protected:
    void showEvent(QShowEvent* event) override;

    ListDetailView* lists() const { return lists_; }

private:
    void addShortcuts();
    void choose(qint64 row);
    void showSelection();

    std::shared_ptr<ListScreenModel> model_;
    std::shared_ptr<EditPaneModel> shown_; ///< whose detail is on screen
    MakeDetail makeDetail_;
    ListDetailView* lists_;
    bool wasShown_ = false;
};
