#pragma once

#include "Components/Card.h"

class PlainLabel;
class PrimaryButton;

/// What stands in the form's place once the request is booked.
class SuccessCard : public Card
{
    Q_OBJECT

public:
    explicit SuccessCard(QWidget* parent = nullptr);

    void setMessage(const QString& message);
    void focusFirstAction(Qt::FocusReason reason);

signals:
    void sessionsWanted();
    void anotherWanted();

private:
    PlainLabel* message_;
    PrimaryButton* viewSessions_;
};
