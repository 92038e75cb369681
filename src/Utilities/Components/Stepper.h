#pragma once

#include "BrandStyle.h"

#include <QSpinBox>
#include <QWheelEvent>

/// A number changed by one with two halves, minus and plus. The number itself is shown beside it by whoever
/// uses it; to assistive technology this is a spin control. The wheel never changes it.
class Stepper : public QSpinBox, public SpinBoxArrangement
{
    Q_OBJECT

public:
    using Value = int;

    /// \param label  its accessible name
    Stepper(const QString& label, int minimum, int maximum, QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }
    QRect partRect(QStyle::SubControl part) const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override { event->ignore(); }

private:
    void paintHalf(QPainter& painter, QStyle::SubControl part, bool canStep) const;
};
