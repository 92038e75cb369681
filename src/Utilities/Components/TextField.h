#pragma once

#include "LabeledField.h"

class QLineEdit;

/// A line of text to fill in, under its caption.
class TextField : public LabeledField
{
    Q_OBJECT

public:
    using Value = QString;

    explicit TextField(const QString& caption, const QString& placeholder = {}, QWidget* parent = nullptr);

    QString text() const;
    void setText(const QString& text);
    QString value() const { return text(); }
    void setValue(const QString& text) { setText(text); }
    void setPlaceholder(const QString& placeholder);
    /// For a field without a visible caption.
    void setFieldName(const QString& name);

    QLineEdit* lineEdit() const { return edit_; }

signals:
    /// The text is another now, typed or set.
    void valueChanged(const QString& text);
    void returnPressed();

private:
    TextField(QLineEdit* edit, const QString& caption, const QString& placeholder, QWidget* parent);

    QLineEdit* edit_;
};
