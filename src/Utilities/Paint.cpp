#include "Paint.h"

#include "FaultMark.h"
#include "Palette.h"
#include "Spacing.h"

#include <QPainter>
#include <QWidget>

namespace Paint {

void roundedRect(QPainter& painter, const QRectF& area, qreal radius, const QBrush& fill, const QColor& edge,
    qreal edgeWidth)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(fill);
    if (edge.isValid()) {
        const auto inset = edgeWidth / 2;
        painter.setPen({edge, edgeWidth});
        painter.drawRoundedRect(area.adjusted(inset, inset, -inset, -inset), radius - inset, radius - inset);
    } else {
        painter.setPen(Qt::NoPen);
        painter.drawRoundedRect(area, radius, radius);
    }
    painter.restore();
}

QPainterPath leadingCorner(const QRectF& area, qreal radius, Qt::LayoutDirection direction)
{
    const bool mirrored = direction == Qt::RightToLeft;
    const qreal leading = mirrored ? area.right() : area.left();
    const qreal trailing = mirrored ? area.left() : area.right();
    const QRectF circle(mirrored ? leading - 2 * radius : leading, area.top(), 2 * radius, 2 * radius);
    QPainterPath path(QPointF(leading, area.bottom()));
    path.lineTo(leading, area.top() + radius);
    path.arcTo(circle, mirrored ? 0 : 180, mirrored ? 90 : -90);
    path.lineTo(trailing, area.top());
    path.lineTo(trailing, area.bottom());
    path.closeSubpath();
    return path;
}

ControlState stateOf(const QWidget& control, const QWidget* focusOwner)
{
    const auto& owner = focusOwner ? *focusOwner : control;
    return {control.isEnabled(), control.underMouse(), owner.hasFocus() || FaultMark::isOn(&owner)};
}

void field(QPainter& painter, const QRectF& area, const ControlState& state)
{
    if (!state.enabled)
        roundedRect(
            painter, area, Radius::control, Palette::color(Brand::panel), Palette::color(Brand::line));
    else if (state.focused)
        roundedRect(
            painter, area, Radius::control, Palette::color(Brand::fieldFill), Palette::color(Brand::blue), 2);
    else
        roundedRect(painter, area, Radius::control, Palette::color(Brand::fieldFill),
            Palette::color(state.hovered ? Brand::muted : Brand::fieldBorder));
}

void arc(QPainter& painter, const QRectF& box, const QColor& color, qreal degrees)
{
    constexpr qreal thickness = 2;
    constexpr int wholeCircle = 360 * 16;
    const auto ring = box.adjusted(thickness / 2, thickness / 2, -thickness / 2, -thickness / 2);
    auto faint = color;
    faint.setAlphaF(0.3F);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setPen({faint, thickness});
    painter.drawArc(ring, 0, wholeCircle);
    painter.setPen({color, thickness, Qt::SolidLine, Qt::RoundCap});
    painter.drawArc(ring, 90 * 16 - qRound(degrees * 16), -wholeCircle * 3 / 4);
    painter.restore();
}

} // namespace Paint
