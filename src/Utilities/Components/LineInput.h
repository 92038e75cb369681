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
};
