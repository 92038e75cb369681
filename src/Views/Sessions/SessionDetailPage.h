#pragma once

#include "Page.h"

class Card;
class QBoxLayout;
class QSpacerItem;
class SessionDetailModel;
class SessionSummaryCard;

/// What is shown of a session that has been loaded: its summary and the controls of whoever may change it,
/// and its thread and documents, below or, where there is room, beside them.
class SessionDetailPage : public Page
{
    Q_OBJECT

public:
    /// The model must outlive the page.
    explicit SessionDetailPage(SessionDetailModel& model, QWidget* parent = nullptr);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    /// Cards under each other.
    struct Column
    {
        QBoxLayout* cards;
        QSpacerItem* end;
    };

    Column addColumn();
    void add(const Column& column, Card* card);
    Card* makeSummary();
    void arrangeColumns();
    void arrangeCards();

    SessionDetailModel& model_;
    QBoxLayout* columns_;
    Column leading_;
    Column trailing_;
    QList<Card*> cards_;
};
