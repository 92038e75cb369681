#include "PrimaryButton.h"

#include "Palette.h"

Button::Colors PrimaryButton::colors() const
{
    if (!isEnabled())
        return {Palette::color(Brand::line), {}, Palette::color(Brand::muted), Palette::color(Brand::muted)};
    const double darkening = isPressed() ? 0.28 : isHovered() ? 0.14 : 0;
    const auto label = Palette::color(Brand::card);
    return {Palette::mix(Brand::blue, Brand::navy, darkening), {}, label, label};
}
