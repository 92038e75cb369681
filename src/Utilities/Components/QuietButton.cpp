#include "QuietButton.h"

#include "Palette.h"

QuietButton::QuietButton(const QString& title, const QString& systemImage, QWidget* parent)
    : Button(title, systemImage, parent)
{
    setButtonSize(Size::small);
}

int QuietButton::padding() const
{
    return roomAcross;
}

Button::Colors QuietButton::colors() const
{
    using Palette::color;
    if (!isEnabled())
        return {Qt::transparent, {}, color(Brand::muted), color(Brand::muted)};
    const QColor fill = isPressed() ? color(Brand::paleBlue)
        : isHovered()               ? color(Brand::softBlue)
                                    : QColor(Qt::transparent);
    return {fill, {}, color(Brand::blue), color(Brand::blue)};
}
