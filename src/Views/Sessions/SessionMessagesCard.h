#pragma once

#include "Components/Card.h"

#include <memory>

class SessionMessagesModel;
class SessionMessageThread;
class TextEditor;

/// The message thread of a session, the newest message in view, and under it the message that the person
/// writes. Shows the alerts of its model itself.
class SessionMessagesCard : public Card
{
    Q_OBJECT

public:
    explicit SessionMessagesCard(std::shared_ptr<SessionMessagesModel> model, QWidget* parent = nullptr);
    ~SessionMessagesCard() override;

protected:
    void showEvent(QShowEvent* event) override;

private:
    void addThread();
    void addEditor();
    void send();

    std::shared_ptr<SessionMessagesModel> model_;
    SessionMessageThread* thread_ = nullptr;
    bool wasShown_ = false;
};
