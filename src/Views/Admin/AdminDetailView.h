#pragma once

#include "Admin/AdminDetailModel.h"
#include "Page.h"

class Card;
class QBoxLayout;

/// The edit pane of one record of the administration: its fields on a card, row by row, with the buttons that
/// delete and save below them. Where it is very narrow for its text the fields stand under one another.
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
    /// Adds what stands apart from the fields.
    void addBlock(QWidget* block);
    /// Called last.
    void addButtons();

    void resizeEvent(QResizeEvent* event) override;

private:
    std::shared_ptr<AdminDetailModel> model_;
    Card* card_;
    QVBoxLayout* rows_;
    QList<QBoxLayout*> fieldRows_;
};
