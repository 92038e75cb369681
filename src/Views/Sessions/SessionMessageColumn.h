#pragma once

#include "Components/LazyColumn.h"
#include "SessionMessage.h"
#include "Sessions/MessagePieces.h"
#include "Sessions/SessionMessageRow.h"

class SelectableText;

/// The messages of a thread from the oldest to the newest. Tab comes to the newest one; from there the arrow
/// keys, Page Up, Page Down, Home and End walk from message to message.
class SessionMessageColumn : public LazyColumn
{
    Q_OBJECT

public:
    /// \param page  in which the column scrolls
    explicit SessionMessageColumn(QScrollArea& page);

    void setMessages(const QList<SessionMessage>& messages);

protected:
    QWidget* makeRow(qsizetype index) override;
    int estimatedHeight(qsizetype index, int width) const override;
    QList<QWidget*> tabStops(QWidget* row) const override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// What one row shows.
    struct Piece
    {
        qsizetype message = 0; ///< its place in the thread
        TextPiece text;
    };

    SessionMessageRow::Part partOf(const Piece& piece) const;
    int spaceAbove(qsizetype index) const;
    void addPieces(qsizetype message, QList<Key>& keys, QHash<Key, int>& seen);
    void updateTabStop();
    bool walk(int key);
    void focusMessage(qsizetype index);

    QScrollArea& page_;
    QList<SessionMessage> messages_;
    QList<Piece> pieces_;
};
