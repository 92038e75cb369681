#include "SelectableText.h"

#include "PlainText.h"

#include <QClipboard>
#include <QFocusEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QTextBlock>
#include <QWheelEvent>

#include <cmath>

namespace {

/// A text that wraps asks for no more than this, and takes what it is given.
constexpr int widestHint = 560;
constexpr int narrowestHint = 40;

} // namespace

SelectableText::SelectableText(const QString& text, const Type::Style& style, QWidget* parent)
    : QTextEdit(parent)
{
    setReadOnly(true);
    setUndoRedoEnabled(false);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setTabChangesFocus(true);
    setFrameShape(QFrame::NoFrame);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    setFont(Type::font(style));
    viewport()->setAutoFillBackground(false);
    document()->setDocumentMargin(0);
    setPlainText(PlainText::printable(text));
    setLineHeight(Type::lineHeight(style));
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

void SelectableText::setLineHeight(int height)
{
    QTextBlockFormat format;
    format.setLineHeight(height, QTextBlockFormat::FixedHeight);
    QTextCursor all(document());
    all.select(QTextCursor::Document);
    all.mergeBlockFormat(format);
}

QSize SelectableText::sizeHint() const
{
    const int width = Type::scaled(widestHint);
    return {width, heightForWidth(width)};
}

QSize SelectableText::minimumSizeHint() const
{
    return {Type::scaled(narrowestHint), 0};
}

int SelectableText::heightForWidth(int width) const
{
    // Also when it is not this widget's width yet: whoever asks is going to make it so.
    document()->setTextWidth(width);
    return static_cast<int>(std::ceil(document()->size().height()));
}

void SelectableText::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Copy) && !textCursor().hasSelection()) {
        QGuiApplication::clipboard()->setText(toPlainText());
        event->accept();
        return;
    }
    QTextEdit::keyPressEvent(event);
}

void SelectableText::focusOutEvent(QFocusEvent* event)
{
    QTextEdit::focusOutEvent(event);
    const bool comesBack
        = event->reason() == Qt::ActiveWindowFocusReason || event->reason() == Qt::PopupFocusReason;
    if (comesBack || !textCursor().hasSelection())
        return;
    QTextCursor cursor = textCursor();
    cursor.clearSelection();
    setTextCursor(cursor);
}

void SelectableText::wheelEvent(QWheelEvent* event)
{
    event->ignore();
}
