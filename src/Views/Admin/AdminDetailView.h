#pragma once

#include "Admin/AdminDetailModel.h"
#include "Page.h"

class Card;

/// The edit pane of one record of the administration: its fields on a card, row by row, with the buttons that
/// delete and save below them.
class AdminDetailView : public Page
{
    Q_OBJECT

protected:
    /// A field and its part of the row's width, compared with the others'.
    struct Cell
    {
        QWidget* field;
        int share = 1;
    };

    explicit AdminDetailView(std::shared_ptr<AdminDetailModel> model, QWidget* parent = nullptr);

    void addRow(std::initializer_list<Cell> cells);
    void add(QWidget* block);
    /// Called last.
    void addButtons();

private:
    std::shared_ptr<AdminDetailModel> model_;
    Card* card_;
    QVBoxLayout* rows_;
};
