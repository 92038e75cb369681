#include "TextField.h"

#include "LineInput.h"

TextField::TextField(const QString& caption, const QString& placeholder, QWidget* parent)
    : TextField(new LineInput, caption, placeholder, parent)
{ }

TextField::TextField(QLineEdit* edit, const QString& caption, const QString& placeholder, QWidget* parent)
    : LabeledField(caption, edit, Placement::above, parent), edit_(edit)
{
    edit->setPlaceholderText(placeholder);
    connect(edit, &QLineEdit::textChanged, this, &TextField::valueChanged);
    connect(edit, &QLineEdit::returnPressed, this, &TextField::returnPressed);
}

QString TextField::text() const
{
    return edit_->text();
}

void TextField::setText(const QString& text)
{
    if (text == edit_->text())
        return;
    edit_->setText(text);
    // A long text is shown from its beginning until somebody works in it.
    if (!edit_->hasFocus())
        edit_->home(false);
}

void TextField::setPlaceholder(const QString& placeholder)
{
    edit_->setPlaceholderText(placeholder);
}

void TextField::setFieldName(const QString& name)
{
    edit_->setAccessibleName(name);
}
