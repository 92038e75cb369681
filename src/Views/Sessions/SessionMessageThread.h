#pragma once

#include "Components/ScrollPage.h"
#include "SessionMessage.h"

class SessionMessageColumn;

/// A thread of messages, as high as they are up to a limit; a longer one scrolls. It opens at the newest
/// message and stays there as messages come, but leaves the person in peace who has scrolled up to read.
class SessionMessageThread : public ScrollPage
{
    Q_OBJECT

public:
    SessionMessageThread();

    void setMessages(const QList<SessionMessage>& messages);
    void scrollToNewest();

private:
    SessionMessageColumn* column_;
};
