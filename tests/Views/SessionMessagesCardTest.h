#pragma once

#include "Components/SelectableText.h"
#include "Screens/Cases.h"
#include "SessionCardsTest.h"
#include "Sessions/SessionMessageColumn.h"
#include "Sessions/SessionMessageRow.h"
#include "Sessions/SessionMessageThread.h"

#include <QPlainTextEdit>
#include <QScrollBar>

#include <algorithm>

using namespace Qt::StringLiterals;

/// The card of a thread, on a page in a window of its own.
class SessionMessagesCardTest : public SessionCardsTest
{
protected:
    void show(const QList<SessionMessage>& thread = {}, QSize size = {600, 700})
    {
        messages->setMessages(thread);
        SessionCardsTest::show(size);
    }

    QPlainTextEdit* editor() const { return control<QPlainTextEdit>(u"New Message"_s); }
    Button* sendButton() const { return control<Button>(u"Send Message"_s); }
    SessionMessageThread* thread() const { return window->findChild<SessionMessageThread*>(); }
    QScrollBar* bar() const { return thread()->verticalScrollBar(); }
    bool isAtNewest() const { return bar()->value() == bar()->maximum(); }
    void scrollTo(int value)
    {
        bar()->setValue(value);
        settle();
    }

    /// From top to bottom.
    QList<SessionMessageRow*> rows() const
    {
        QList<SessionMessageRow*> rows;
        for (auto* row : window->findChildren<SessionMessageRow*>()) {
            if (row->isVisible())
                rows += row;
        }
        std::sort(rows.begin(), rows.end(), [](auto* a, auto* b) { return a->y() < b->y(); });
        return rows;
    }
    /// Those of which something is in view.
    QList<SessionMessageRow*> rowsInView() const
    {
        QList<SessionMessageRow*> inView = rows();
        inView.removeIf([](const SessionMessageRow* row) { return row->visibleRegion().isEmpty(); });
        return inView;
    }
    SessionMessageRow* rowOf(const QString& text) const
    {
        for (SessionMessageRow* row : rows()) {
            if (row->text()->toPlainText() == text)
                return row;
        }
        return nullptr;
    }
    static QString textOf(const SessionMessageRow* row)
    {
        return row ? row->text()->toPlainText() : QString();
    }
    QString focusedText() const
    {
        const auto* text = qobject_cast<SelectableText*>(QApplication::focusWidget());
        return text ? text->toPlainText() : QString();
    }
    void write(const QString& text)
    {
        editor()->setFocus(Qt::TabFocusReason);
        type(text);
    }
};

inline QList<SessionMessage> threadOf(const QList<QString>& texts)
{
    QList<SessionMessage> thread;
    for (const QString& text : texts)
        thread += messageOf(thread.size() + 1, text);
    return thread;
}
