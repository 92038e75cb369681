#pragma once

#include "Components/Card.h"
#include "SessionSummary.h"

class PlainLabel;
class QGridLayout;
class SecondaryButton;
class StatusPill;
class SymbolLine;

/// What is known about one session: reference, people, status, appointment, and who is assigned; and the
/// button that cancels it.
class SessionSummaryCard : public Card
{
    Q_OBJECT

public:
    explicit SessionSummaryCard(QWidget* parent = nullptr);

    void setSession(const SessionSummary& session);
    /// A session that cannot be cancelled has no button for it.
    SecondaryButton* cancelButton() const { return cancel_; }

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void arrangeFacts();

    PlainLabel* reference_;
    PlainLabel* names_;
    StatusPill* status_;
    QGridLayout* facts_;
    QList<SymbolLine*> lines_; ///< in facts_
    SymbolLine* witness_;
    SymbolLine* notary_;
    SecondaryButton* cancel_;
};
