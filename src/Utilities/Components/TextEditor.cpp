#include "TextEditor.h"

#include "EvenLines.h"
#include "Paint.h"
#include "Spacing.h"

#include <QPainter>
#include <QPlainTextEdit>

namespace {

class EditorBox : public QPlainTextEdit
{
public:
    EditorBox(const QString& placeholder, int height)
    {
        setFrameShape(QFrame::NoFrame);
        auto* text = new QTextDocument(this);
        text->setDocumentLayout(new EvenLines(text, Type::body));
        setDocument(text);
        setFont(Type::font(Type::body));
        setPlaceholderText(placeholder);
        setTabChangesFocus(true);
        setAttribute(Qt::WA_Hover);
        viewport()->setAutoFillBackground(false);
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        setFixedHeight(Type::scaled(height));
        // The document has a margin of its own.
        const int ownMargin = qRound(document()->documentMargin());
        const int across = Spacing::fieldPadding + 1 - ownMargin;
        constexpr int down = 9;
        setViewportMargins(across, down - ownMargin, across, down - ownMargin);
    }

protected:
    bool event(QEvent* event) override
    {
        switch (event->type()) {
        case QEvent::Paint: {
            QPainter painter(this);
            Paint::field(painter, rect(), Paint::stateOf(*this));
            return true;
        }
        case QEvent::HoverEnter:
        case QEvent::HoverLeave:
            update();
            break;
        default:
            break;
        }
        return QPlainTextEdit::event(event);
    }

    void focusInEvent(QFocusEvent* event) override
    {
        QPlainTextEdit::focusInEvent(event);
        update();
    }

    void focusOutEvent(QFocusEvent* event) override
    {
        QPlainTextEdit::focusOutEvent(event);
        update();
    }
};

} // namespace

TextEditor::TextEditor(const QString& caption, const QString& placeholder, int height, QWidget* parent)
    : TextEditor(new EditorBox(placeholder, height), caption, parent)
{ }

TextEditor::TextEditor(QPlainTextEdit* edit, const QString& caption, QWidget* parent)
    : LabeledField(caption, edit, Placement::above, parent), edit_(edit)
{
    connect(edit, &QPlainTextEdit::textChanged, this, [this] { emit valueChanged(text()); });
}

QString TextEditor::text() const
{
    return edit_->toPlainText();
}

void TextEditor::setText(const QString& text)
{
    if (text != edit_->toPlainText())
        edit_->setPlainText(text);
}
