#pragma once

#include <QString>

#include <array>
#include <optional>

/// The person's choice of colour scheme. The raw values are a storage format.
enum class AppAppearanceMode
{
    system,
    light,
    dark
};

inline constexpr std::array allAppAppearanceModes{
    AppAppearanceMode::system, AppAppearanceMode::light, AppAppearanceMode::dark};

QString rawValue(AppAppearanceMode mode);
QString title(AppAppearanceMode mode);
/// \returns nothing unless the text equals a raw value exactly.
std::optional<AppAppearanceMode> appAppearanceMode(const QString& rawValue);
/// Whether the window is dark under this mode when the desktop itself is dark or not.
bool isDark(AppAppearanceMode mode, bool systemIsDark);
