#include "TextEditor.h"

#include "EvenLines.h"
#include "Paint.h"
#include "PlainText.h"
#include "Spacing.h"

#include <QAbstractTextDocumentLayout>
#include <QPainter>
#include <QPlainTextEdit>
#include <QResizeEvent>
#include <QTextBlock>

#include <algorithm>

namespace {

class EditorBox : public QPlainTextEdit
{
public:
    EditorBox(const QString& placeholder, int height) : placeholder_(placeholder)
    {
        setFrameShape(QFrame::NoFrame);
        auto* text = new QTextDocument(this);
        text->setDocumentLayout(new EvenLines(text, Type::body));
        setDocument(text);
        setFont(Type::font(Type::body));
        setTabChangesFocus(true);
        setAttribute(Qt::WA_Hover);
        viewport()->setAutoFillBackground(false);
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        setFixedHeight(Type::scaled(height));
        constexpr int down = 9;
        setPadding(down, down);
    }

    void setGrowing(int mostLines, int fewestLines)
    {
        mostLines_ = mostLines;
        fewestLines_ = fewestLines;
        // Without a little room to spare at the end the box would scroll.
        constexpr int spare = 2;
        setPadding(growingPadding(), growingPadding() - spare);
        const auto* layout = document()->documentLayout();
        connect(layout, &QAbstractTextDocumentLayout::documentSizeChanged, this, &EditorBox::fit);
        fit();
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

    /// The placeholder stands where the first letter will; Qt's own stands higher, in its font's own lines.
    void paintEvent(QPaintEvent* event) override
    {
        QPlainTextEdit::paintEvent(event);
        if (!document()->isEmpty())
            return;
        QPainter painter(viewport());
        const int margin = qRound(document()->documentMargin());
        const QRect line(margin, margin, viewport()->width() - 2 * margin, Type::lineHeight(Type::body));
        PlainText::draw(painter, line, placeholder_, Type::body, palette().color(QPalette::PlaceholderText));
    }

    void resizeEvent(QResizeEvent* event) override
    {
        QPlainTextEdit::resizeEvent(event);
        if (mostLines_ == 0 || event->size().width() == event->oldSize().width())
            return;
        // Later, because the layouts around are at work now and would keep to the height that they have read.
        QMetaObject::invokeMethod(
            this, [this] { fitToWidth(); }, Qt::QueuedConnection);
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

private:
    static int growingPadding() { return (Height::control() - Type::lineHeight(Type::body)) / 2; }

    /// In another width the lines are broken anew, one block after the other as it is asked about.
    void fitToWidth()
    {
        for (QTextBlock block = document()->begin(); block.isValid(); block = block.next())
            document()->documentLayout()->blockBoundingRect(block);
        fit();
    }

    void fit()
    {
        // The layout of a plain text counts in lines.
        const int lines = static_cast<int>(document()->size().height());
        setFixedHeight(2 * growingPadding()
            + Type::lineHeight(Type::body) * std::clamp(lines, fewestLines_, mostLines_));
    }

    void setPadding(int above, int below)
    {
        // The document has a margin of its own.
        const int ownMargin = qRound(document()->documentMargin());
        const int across = Spacing::fieldPadding + 1 - ownMargin;
        setViewportMargins(across, above - ownMargin, across, below - ownMargin);
    }

    QString placeholder_;
    int mostLines_ = 0; ///< none for a box of one height
    int fewestLines_ = 1;
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

namespace {

/// How many characters two texts share at their beginnings, none of them half of a pair.
qsizetype sharedStart(QStringView a, QStringView b)
{
    const qsizetype same = std::mismatch(a.begin(), a.end(), b.begin(), b.end()).first - a.begin();
    return same > 0 && a.at(same - 1).isHighSurrogate() ? same - 1 : same;
}

qsizetype sharedEnd(QStringView a, QStringView b)
{
    const qsizetype same = std::mismatch(a.rbegin(), a.rend(), b.rbegin(), b.rend()).first - a.rbegin();
    return same > 0 && a.at(a.size() - same).isLowSurrogate() ? same - 1 : same;
}

} // namespace

/// Only what differs is exchanged, so that the cursor stays where the person is typing.
void TextEditor::setText(const QString& text)
{
    const QString old = edit_->toPlainText();
    if (text == old)
        return;
    const qsizetype start = sharedStart(old, text);
    const qsizetype end = sharedEnd(QStringView(old).sliced(start), QStringView(text).sliced(start));
    QTextCursor changed(edit_->document());
    changed.setPosition(static_cast<int>(start));
    changed.setPosition(static_cast<int>(old.size() - end), QTextCursor::KeepAnchor);
    changed.insertText(text.sliced(start, text.size() - start - end));
    edit_->document()->clearUndoRedoStacks();
}

void TextEditor::setGrowing(int mostLines, int fewestLines)
{
    static_cast<EditorBox*>(edit_)->setGrowing(mostLines, fewestLines);
}
