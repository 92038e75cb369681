#include "DestructiveButton.h"

#include "Palette.h"

Button::Colors DestructiveButton::colors() const
{
    using Palette::color;
    if (!isEnabled())
        return {color(Brand::card), color(Brand::line), color(Brand::muted), color(Brand::muted)};
    if (isPressed())
        return {color(Brand::ink), {}, color(Brand::card), color(Brand::card)};
    if (isHovered())
        return {color(Brand::navy), {}, color(Brand::card), color(Brand::card)};
    return {color(Brand::card), color(Brand::navy), color(Brand::navy), color(Brand::navy)};
}
