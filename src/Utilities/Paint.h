#pragma once

#include <QBrush>
#include <QColor>
#include <QPainterPath>
#include <QRectF>

class QPainter;
class QWidget;

/// The shapes that components are drawn with.
namespace Paint {

/// A filled rounded rectangle whose edge lies wholly inside `area`. An invalid edge colour draws none.
void roundedRect(QPainter& painter, const QRectF& area, qreal radius, const QBrush& fill,
    const QColor& edge = {}, qreal edgeWidth = 1);

/// The area with its top leading corner round, for what lies in the corner of the content.
QPainterPath leadingCorner(const QRectF& area, qreal radius, Qt::LayoutDirection direction);

struct ControlState
{
    bool enabled = true;
    bool hovered = false;
    bool focused = false;
};
/// \param focusOwner  the widget that has the focus when the control does; the control itself when null
ControlState stateOf(const QWidget& control, const QWidget* focusOwner = nullptr);

/// Fill and edge of whatever is typed or picked in.
void field(QPainter& painter, const QRectF& area, const ControlState& state);

/// Three quarters of a circle on a faint whole one, turned clockwise by `degrees`.
void arc(QPainter& painter, const QRectF& box, const QColor& color, qreal degrees);

} // namespace Paint
