#pragma once

#include "Components/Card.h"
#include "SessionSummary.h"

/// What the list knows about one session: reference, people, status, appointment, and who is assigned.
class SessionSummaryCard : public Card
{
    Q_OBJECT

public:
    explicit SessionSummaryCard(const SessionSummary& session, QWidget* parent = nullptr);

private:
    void addHeading(const SessionSummary& session);
    void addFacts(const SessionSummary& session);
};
