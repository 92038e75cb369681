#pragma once

#include "Components/Card.h"

#include <memory>

class SessionMessagesModel;

/// The message thread of a session, the newest message in view, and under it the message that the person
/// writes. Shows the alerts of its model itself.
class SessionMessagesCard : public Card
{
    Q_OBJECT

public:
    explicit SessionMessagesCard(std::shared_ptr<SessionMessagesModel> model, QWidget* parent = nullptr);
    ~SessionMessagesCard() override;

private:
    std::shared_ptr<SessionMessagesModel> model_;
};
