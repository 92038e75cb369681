#pragma once

#include "LabeledField.h"

class QPlainTextEdit;

/// Several lines of text to fill in, under their caption. Tab leaves it.
class TextEditor : public LabeledField
{
    Q_OBJECT

public:
    using Value = QString;

    /// \param height  of the box in pixels at the design's text size
    explicit TextEditor(
        const QString& caption, const QString& placeholder = {}, int height = 72, QWidget* parent = nullptr);

    QString text() const;
    void setText(const QString& text);
    QString value() const { return text(); }
    void setValue(const QString& text) { setText(text); }

    /// Lets the box begin with the fewest lines and grow with its text up to the most; more than these
    /// scroll.
    void setGrowing(int mostLines, int fewestLines = 1);

    QPlainTextEdit* edit() const { return edit_; }

signals:
    /// The text is another now, typed or set.
    void valueChanged(const QString& text);

private:
    TextEditor(QPlainTextEdit* edit, const QString& caption, QWidget* parent);

    QPlainTextEdit* edit_;
};
