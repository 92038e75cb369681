#include "Sessions/SessionMessageThread.h"

#include "Sessions/SessionMessageColumn.h"
#include "Type.h"

#include <algorithm>

static constexpr int highest = 420;

SessionMessageThread::SessionMessageThread() : column_(new SessionMessageColumn(*this))
{
    setContent(column_);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setFixedHeight(0);
    connect(column_, &LazyColumn::heightChanged, this,
        [this](int height) { setFixedHeight(std::min(height, Type::scaled(highest))); });
}

void SessionMessageThread::setMessages(const QList<SessionMessage>& messages)
{
    column_->setMessages(messages);
}

void SessionMessageThread::scrollToNewest()
{
    column_->scrollToEnd();
}
