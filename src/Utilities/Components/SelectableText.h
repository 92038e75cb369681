#pragma once

#include "Type.h"

#include <QTextEdit>

/// A text that is shown as it stands, as high as its lines, and can be selected and copied. For texts of a
/// few thousand characters at most; it is laid out whole.
class SelectableText : public QTextEdit
{
    Q_OBJECT

public:
    explicit SelectableText(
        const QString& text, const Type::Style& style = Type::body, QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;

protected:
    /// Copies everything where nothing is selected.
    void keyPressEvent(QKeyEvent* event) override;
    /// Drops the selection, so that at most one text shows one.
    void focusOutEvent(QFocusEvent* event) override;
    /// Whatever the text lies in scrolls.
    void wheelEvent(QWheelEvent* event) override;

private:
    void setLineHeight(int height);
};
