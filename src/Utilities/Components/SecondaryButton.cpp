#include "SecondaryButton.h"

#include "Palette.h"

Button::Colors SecondaryButton::colors() const
{
    using Palette::color;
    if (!isEnabled())
        return {color(Brand::card), color(Brand::line), color(Brand::muted), color(Brand::muted)};
    const auto fill = isPressed() ? Brand::paleBlue : isHovered() ? Brand::softBlue : Brand::card;
    const auto edge = isPressed() || isHovered() ? Brand::muted : Brand::fieldBorder;
    return {color(fill), color(edge), color(Brand::ink), color(Brand::blue)};
}
