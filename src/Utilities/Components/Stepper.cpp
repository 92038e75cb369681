#include "Stepper.h"

#include "FocusRing.h"
#include "Paint.h"
#include "Palette.h"
#include "Spacing.h"
#include "Type.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QPainterPath>
#include <QStyleOptionSpinBox>

using namespace Qt::StringLiterals;

Stepper::Stepper(const QString& label, int minimum, int maximum, QWidget* parent) : QSpinBox(parent)
{
    setAccessibleName(label);
    setRange(minimum, maximum);
    setAttribute(Qt::WA_Hover);
    setMouseTracking(true);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setFocusPolicy(Qt::StrongFocus);
    lineEdit()->hide();
    lineEdit()->setReadOnly(true);
    FocusRing::attach(this, Radius::control);
}

QSize Stepper::sizeHint() const
{
    return {2 * Type::scaled(40) + 2, Height::control()};
}

QRect Stepper::partRect(QStyle::SubControl part) const
{
    QRect half(0, 0, width() / 2, height());
    switch (part) {
    case QStyle::SC_SpinBoxDown:
        break;
    case QStyle::SC_SpinBoxUp:
        half.setRect(width() / 2, 0, width() - width() / 2, height());
        break;
    case QStyle::SC_SpinBoxFrame:
        return rect();
    default:
        return {};
    }
    return QStyle::visualRect(layoutDirection(), rect(), half);
}

void Stepper::keyPressEvent(QKeyEvent* event)
{
    const int forward = isRightToLeft() ? -1 : 1;
    switch (event->key()) {
    case Qt::Key_Right:
        return stepBy(forward);
    case Qt::Key_Left:
        return stepBy(-forward);
    case Qt::Key_Plus:
        return stepBy(1);
    case Qt::Key_Minus:
        return stepBy(-1);
    case Qt::Key_Home:
        return setValue(minimum());
    case Qt::Key_End:
        return setValue(maximum());
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        return QSpinBox::keyPressEvent(event);
    default:
        // Nothing can be typed here.
        return event->ignore();
    }
}

/// A plus or a minus of strokes that fill whole pixels: a symbol's thin strokes would be smeared over two.
static void paintSign(QPainter& painter, const QRect& half, bool isPlus, const QColor& color)
{
    const int thickness = Type::scaled(2);
    const int length = Type::scaled(6) * 2 + thickness % 2;
    const QRect box(
        (half.left() + half.right() + 1 - length) / 2, (half.height() - length) / 2, length, length);
    const int inset = (length - thickness) / 2;
    painter.fillRect(box.adjusted(0, inset, 0, -inset), color);
    if (isPlus)
        painter.fillRect(box.adjusted(inset, 0, -inset, 0), color);
}

void Stepper::paintHalf(QPainter& painter, QStyle::SubControl part, bool canStep) const
{
    const auto half = partRect(part);
    const bool reacts = isEnabled() && canStep;
    QStyleOptionSpinBox option;
    initStyleOption(&option);
    if (reacts && underMouse() && half.contains(mapFromGlobal(QCursor::pos()))) {
        const bool pressed = option.state & QStyle::State_Sunken && option.activeSubControls & part;
        painter.fillRect(half, Palette::color(pressed ? Brand::paleBlue : Brand::softBlue));
    }
    paintSign(
        painter, half, part == QStyle::SC_SpinBoxUp, Palette::color(reacts ? Brand::blue : Brand::muted));
}

void Stepper::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const auto edge = Palette::color(isEnabled() ? Brand::fieldBorder : Brand::line);
    Paint::roundedRect(
        painter, rect(), Radius::control, Palette::color(isEnabled() ? Brand::card : Brand::panel));
    painter.save();
    QPainterPath inside;
    inside.addRoundedRect(rect(), Radius::control, Radius::control);
    painter.setClipPath(inside);
    paintHalf(painter, QStyle::SC_SpinBoxDown, value() > minimum());
    paintHalf(painter, QStyle::SC_SpinBoxUp, value() < maximum());
    painter.restore();
    painter.fillRect(width() / 2, 0, 1, height(), edge);
    Paint::roundedRect(painter, rect(), Radius::control, Qt::NoBrush, edge);
}
