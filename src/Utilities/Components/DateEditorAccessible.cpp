#include "DateEditorAccessible.h"

#include "DateEditor.h"

#include <QAccessibleValueInterface>
#include <QAccessibleWidget>
#include <QLineEdit>
#include <QPointer>

using namespace Qt::StringLiterals;

namespace {

/// The name of a part of a date, and its value written out.
QString told(const DateEditor& editor, QDateTimeEdit::Section section)
{
    switch (section) {
    case QDateTimeEdit::MonthSection:
        return u"month, "_s + editor.locale().monthName(editor.date().month());
    case QDateTimeEdit::DaySection:
        return u"day, "_s + QString::number(editor.date().day());
    case QDateTimeEdit::YearSection:
        return u"year, "_s + QString::number(editor.date().year());
    case QDateTimeEdit::HourSection:
        return u"hour, "_s + editor.sectionText(section);
    case QDateTimeEdit::MinuteSection:
        return u"minute, "_s + editor.sectionText(section);
    default:
        return u"half, "_s + editor.sectionText(section);
    }
}

/// In a role whose name is not spoken.
class AccessiblePart : public QAccessibleInterface
{
public:
    AccessiblePart(DateEditor* editor, int index) : editor_(editor), index_(index) { }

    bool isValid() const override { return !editor_.isNull(); }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override { return parent() ? parent()->window() : nullptr; }

    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(editor_); }
    QAccessibleInterface* child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }

    QString text(QAccessible::Text kind) const override
    {
        if (!editor_ || kind != QAccessible::Name)
            return {};
        const QString part = told(*editor_, editor_->sectionAt(index_));
        return index_ == editor_->entryPart() ? editor_->accessibleName() + u", "_s + part : part;
    }
    void setText(QAccessible::Text, const QString&) override { }

    QRect rect() const override { return parent() ? parent()->rect() : QRect(); }
    QAccessible::Role role() const override { return QAccessible::ListItem; }
    QAccessible::State state() const override
    {
        QAccessible::State state;
        if (editor_) {
            state.focused = editor_->hasFocus() && editor_->currentSectionIndex() == index_;
            state.invisible = !editor_->isVisible();
            state.disabled = !editor_->isEnabled();
        }
        return state;
    }

private:
    QPointer<DateEditor> editor_;
    int index_;
};

class AccessibleDateEditor : public QAccessibleWidget,
                             public QAccessibleValueInterface,
                             public QAccessibleTextInterface
{
public:
    explicit AccessibleDateEditor(DateEditor* editor) : QAccessibleWidget(editor, QAccessible::SpinBox)
    {
        for (int index = 0; index < editor->sectionCount(); ++index)
            parts_ += QAccessible::registerAccessibleInterface(new AccessiblePart(editor, index));
    }
    Q_DISABLE_COPY_MOVE(AccessibleDateEditor)

    int childCount() const override { return int(parts_.size()); }
    QAccessibleInterface* child(int index) const override
    {
        return QAccessible::accessibleInterface(parts_.value(index));
    }
    int indexOfChild(const QAccessibleInterface* child) const override
    {
        return int(parts_.indexOf(QAccessible::uniqueId(const_cast<QAccessibleInterface*>(child))));
    }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }

    QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Value ? editor()->text() : QAccessibleWidget::text(kind);
    }

    void* interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::ValueInterface)
            return static_cast<QAccessibleValueInterface*>(this);
        if (type == QAccessible::TextInterface)
            return static_cast<QAccessibleTextInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }

    QVariant currentValue() const override { return editor()->dateTime().toSecsSinceEpoch(); }
    void setCurrentValue(const QVariant& value) override
    {
        editor()->setDateTime(QDateTime::fromSecsSinceEpoch(value.toLongLong(), Qt::UTC));
    }
    QVariant maximumValue() const override { return editor()->maximumDateTime().toSecsSinceEpoch(); }
    QVariant minimumValue() const override { return editor()->minimumDateTime().toSecsSinceEpoch(); }
    QVariant minimumStepSize() const override { return 1; }

    QString text(int start, int end) const override { return editor()->text().mid(start, end - start); }
    int characterCount() const override { return int(editor()->text().size()); }
    int cursorPosition() const override { return line()->cursorPosition(); }
    void setCursorPosition(int position) override { line()->setCursorPosition(position); }
    int selectionCount() const override { return line()->hasSelectedText() ? 1 : 0; }
    void selection(int, int* start, int* end) const override
    {
        *start = line()->hasSelectedText() ? line()->selectionStart() : 0;
        *end = line()->hasSelectedText() ? line()->selectionEnd() : 0;
    }
    void setSelection(int, int start, int end) override { line()->setSelection(start, end - start); }
    void addSelection(int start, int end) override { setSelection(0, start, end); }
    void removeSelection(int) override { line()->deselect(); }
    QRect characterRect(int) const override { return rect(); }
    int offsetAtPoint(const QPoint&) const override { return -1; }
    void scrollToSubstring(int, int) override { }
    QString attributes(int offset, int* start, int* end) const override
    {
        *start = offset;
        *end = characterCount();
        return {};
    }

protected:
    ~AccessibleDateEditor() override
    {
        for (const QAccessible::Id part : parts_)
            QAccessible::deleteAccessibleInterface(part);
    }

private:
    DateEditor* editor() const { return static_cast<DateEditor*>(widget()); }
    QLineEdit* line() const { return editor()->line(); }

    QList<QAccessible::Id> parts_;
};

QAccessibleInterface* make(const QString&, QObject* object)
{
    auto* editor = qobject_cast<DateEditor*>(object);
    return editor ? new AccessibleDateEditor(editor) : nullptr;
}

} // namespace

void DateEditorAccessible::install()
{
    QAccessible::installFactory(make);
}
