#pragma once

#include <QLineEdit>

/// The box of a field in which one line is typed.
class LineInput : public QLineEdit
{
    Q_OBJECT

public:
    explicit LineInput(QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    /// Shows a long text from its beginning again, unless the person is only looking elsewhere for a moment.
    void focusOutEvent(QFocusEvent* event) override;
};
