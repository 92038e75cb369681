#include "Sessions/SessionMessageColumn.h"

#include "Accessibility.h"
#include "Components/SelectableText.h"
#include "Spacing.h"

#include <QFontMetrics>
#include <QKeyEvent>
#include <QScrollArea>
#include <QScrollBar>

using namespace Qt::StringLiterals;

/// Characters; a piece of this length is laid out well within a frame.
static constexpr qsizetype longestPiece = 2'000;
static constexpr int betweenMessages = 16;
/// Lines by which a message scrolls that is higher than the view.
static constexpr int linesAStep = 5;

SessionMessageColumn::SessionMessageColumn(QScrollArea& page) : LazyColumn(page, 0, nullptr), page_(page)
{
    Accessibility::setRole(this, QAccessible::List);
    setAccessibleName(u"Messages"_s);
    setFollowsEnd(true);
}

void SessionMessageColumn::setMessages(const QList<SessionMessage>& messages)
{
    messages_ = messages;
    pieces_.clear();
    QList<Key> keys;
    QHash<Key, int> seen;
    for (qsizetype message = 0; message < messages_.size(); ++message)
        addPieces(message, keys, seen);
    setKeys(keys);
    updateTabStop();
}

/// A key holds all that a row shows, so that a message that was changed gets new rows.
void SessionMessageColumn::addPieces(qsizetype index, QList<Key>& keys, QHash<Key, int>& seen)
{
    const SessionMessage& message = messages_.at(index);
    const size_t shown = qHashMulti(index == 0 ? 1 : 0, message.senderType, message.senderName,
        message.senderEmail, message.message, message.createdAt);
    Key key = QByteArray::number(message.id) + '/' + QByteArray::number(quint64(shown));
    if (const int before = seen[key]++; before > 0)
        key += '#' + QByteArray::number(before);
    for (const TextPiece& text : textPieces(message.message, longestPiece)) {
        pieces_.append({index, text});
        keys += key + '+' + QByteArray::number(text.from);
    }
}

SessionMessageRow::Part SessionMessageColumn::partOf(const Piece& piece) const
{
    return piece.text.from == 0 ? SessionMessageRow::Part::first : SessionMessageRow::Part::further;
}

int SessionMessageColumn::spaceAbove(qsizetype index) const
{
    return index > 0 && partOf(pieces_.at(index)) == SessionMessageRow::Part::first ? betweenMessages : 0;
}

QWidget* SessionMessageColumn::makeRow(qsizetype index)
{
    const Piece& piece = pieces_.at(index);
    const SessionMessage& message = messages_.at(piece.message);
    const QString text = message.message.sliced(piece.text.from, piece.text.size);
    auto* row = new SessionMessageRow(message, partOf(piece), text, spaceAbove(index), this);
    row->text()->installEventFilter(this);
    if (index == count() - 1)
        row->text()->setFocusPolicy(Qt::StrongFocus);
    return row;
}

int SessionMessageColumn::estimatedHeight(qsizetype index, int width) const
{
    const Piece& piece = pieces_.at(index);
    const int room = std::max(1, SessionMessageRow::textWidth(width));
    const qsizetype length = piece.text.size * QFontMetrics(font()).averageCharWidth();
    const int lines = 1 + piece.text.lineBreaks + static_cast<int>(length / room);
    return SessionMessageRow::heightOf(partOf(piece), lines, spaceAbove(index));
}

QList<QWidget*> SessionMessageColumn::tabStops(QWidget* row) const
{
    return {static_cast<SessionMessageRow*>(row)->text()};
}

/// Tab is to stop once in the thread, however long that is: at the message that has the focus, or else at
/// the newest.
void SessionMessageColumn::updateTabStop()
{
    const qsizetype focused = focusedRow();
    const qsizetype stop = focused >= 0 ? focused : count() - 1;
    for (qsizetype index = 0; index < count(); ++index) {
        if (auto* shown = static_cast<SessionMessageRow*>(row(index)))
            shown->text()->setFocusPolicy(index == stop ? Qt::StrongFocus : Qt::ClickFocus);
    }
}

bool SessionMessageColumn::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::FocusIn:
    case QEvent::FocusOut:
        updateTabStop();
        break;
    case QEvent::KeyPress: {
        const auto* press = static_cast<QKeyEvent*>(event);
        if (press->modifiers().testAnyFlags(Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier))
            break;
        return walk(press->key());
    }
    default:
        break;
    }
    return LazyColumn::eventFilter(watched, event);
}

bool SessionMessageColumn::walk(int key)
{
    const qsizetype at = focusedRow();
    const int step = linesAStep * Type::lineHeight(Type::body);
    switch (key) {
    case Qt::Key_Up:
        if (!revealMore(at, -step))
            focusMessage(at - 1);
        return true;
    case Qt::Key_Down:
        if (!revealMore(at, step))
            focusMessage(at + 1);
        return true;
    case Qt::Key_Home:
        focusMessage(0);
        return true;
    case Qt::Key_End:
        focusMessage(count() - 1);
        return true;
    case Qt::Key_PageUp:
        page_.verticalScrollBar()->triggerAction(QAbstractSlider::SliderPageStepSub);
        focusMessage(rowsInView().first);
        return true;
    case Qt::Key_PageDown:
        page_.verticalScrollBar()->triggerAction(QAbstractSlider::SliderPageStepAdd);
        focusMessage(rowsInView().second);
        return true;
    default:
        return false;
    }
}

void SessionMessageColumn::focusMessage(qsizetype index)
{
    if (index < 0 || index >= count())
        return;
    reveal(index);
    static_cast<SessionMessageRow*>(row(index))->text()->setFocus(Qt::OtherFocusReason);
}
