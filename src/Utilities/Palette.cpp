#include "Palette.h"

#include <QGuiApplication>
#include <QLinearGradient>

namespace Palette {
namespace {

bool darkScheme = false;
bool highContrast = false;

Brand::Tone placeholderTone()
{
    return highContrast ? Brand::muted : Brand::steel;
}

QLinearGradient cornerToCorner(const QRectF& area)
{
    if (QGuiApplication::isRightToLeft())
        return {area.topRight(), area.bottomLeft()};
    return {area.topLeft(), area.bottomRight()};
}

template <typename Stops, typename Resolve>
QBrush threeStops(const QRectF& area, const Stops& stops, Resolve resolve)
{
    auto gradient = cornerToCorner(area);
    gradient.setColorAt(0, resolve(stops[0]));
    gradient.setColorAt(0.5, resolve(stops[1]));
    gradient.setColorAt(1, resolve(stops[2]));
    return gradient;
}

} // namespace

bool isDark()
{
    return darkScheme;
}

bool hasHighContrast()
{
    return highContrast;
}

void setDark(bool isDark)
{
    darkScheme = isDark;
}

void setHighContrast(bool isHigh)
{
    highContrast = isHigh;
}

QColor color(Brand::Tone tone)
{
    const Brand::Tone shown = highContrast ? Brand::strengthened(tone) : tone;
    return QColor::fromRgb(shown.in(darkScheme));
}

QColor color(Brand::Tone tone, double opacity)
{
    auto result = color(tone);
    result.setAlphaF(static_cast<float>(opacity));
    return result;
}

QColor mix(Brand::Tone base, Brand::Tone other, double share)
{
    const auto from = color(base);
    const auto to = color(other);
    const auto blend = [share](int a, int b) { return qRound(a + (b - a) * share); };
    return {blend(from.red(), to.red()), blend(from.green(), to.green()), blend(from.blue(), to.blue())};
}

QColor placeholder()
{
    return color(placeholderTone());
}

QColor scrim()
{
    return color(Brand::scrim, darkScheme ? Brand::scrimOpacityDark : Brand::scrimOpacityLight);
}

QBrush gradient(const QRectF& area)
{
    return threeStops(area, Brand::gradient, [](Brand::Tone tone) { return color(tone); });
}

QBrush darkGradient(const QRectF& area)
{
    return threeStops(area, Brand::darkGradient, [](Brand::Rgb stop) { return QColor::fromRgb(stop); });
}

QPalette applicationPalette()
{
    QPalette palette;
    const auto set = [&palette](QPalette::ColorRole role, Brand::Tone enabled, Brand::Tone disabled) {
        palette.setColor(QPalette::Active, role, color(enabled));
        palette.setColor(QPalette::Inactive, role, color(enabled));
        palette.setColor(QPalette::Disabled, role, color(disabled));
    };
    set(QPalette::Window, Brand::panel, Brand::panel);
    set(QPalette::WindowText, Brand::ink, Brand::muted);
    set(QPalette::Base, Brand::fieldFill, Brand::panel);
    set(QPalette::AlternateBase, Brand::panel, Brand::panel);
    set(QPalette::Text, Brand::ink, Brand::muted);
    set(QPalette::PlaceholderText, placeholderTone(), Brand::muted);
    set(QPalette::Button, Brand::card, Brand::card);
    set(QPalette::ButtonText, Brand::ink, Brand::muted);
    set(QPalette::BrightText, Brand::navy, Brand::muted);
    set(QPalette::Highlight, Brand::blue, Brand::line);
    set(QPalette::HighlightedText, Brand::card, Brand::muted);
    set(QPalette::Link, Brand::blue, Brand::muted);
    set(QPalette::LinkVisited, Brand::blue, Brand::muted);
    set(QPalette::ToolTipBase, Brand::card, Brand::card);
    set(QPalette::ToolTipText, Brand::ink, Brand::ink);
    set(QPalette::Light, Brand::card, Brand::card);
    set(QPalette::Midlight, Brand::panel, Brand::panel);
    set(QPalette::Mid, Brand::line, Brand::line);
    set(QPalette::Dark, Brand::fieldBorder, Brand::fieldBorder);
    set(QPalette::Shadow, Brand::muted, Brand::muted);
    return palette;
}

} // namespace Palette
