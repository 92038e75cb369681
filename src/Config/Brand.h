#pragma once

#include <array>
#include <cstdint>

/// The palette: what the program is painted with, as plain numbers. A role keeps its name in both schemes;
/// how a tone becomes a colour on screen is the business of the presentation kit.
namespace Brand {

/// An opaque sRGB colour, 0xRRGGBB.
using Rgb = std::uint32_t;

/// One colour of the palette in the light and in the dark scheme.
struct Tone
{
    Rgb light;
    Rgb dark;

    constexpr Rgb in(bool isDark) const { return isDark ? dark : light; }
    constexpr bool operator==(const Tone&) const = default;
};

inline constexpr Tone navy{0x0A224C, 0xDAE8FF};
inline constexpr Tone blue{0x165CBF, 0x599CFF};
inline constexpr Tone ink{0x121C2C, 0xEEF4FC};
inline constexpr Tone steel{0x4A5B73, 0xADBBCF};
inline constexpr Tone muted{0x657C99, 0x8B9DB5};
inline constexpr Tone line{0xD6E1EF, 0x2B394D};
inline constexpr Tone fieldBorder{0xC3D2E5, 0x3E526E};
inline constexpr Tone fieldFill{0xFFFFFF, 0x121924};
inline constexpr Tone card{0xFFFFFF, 0x0F1622};
inline constexpr Tone panel{0xF7FAFE, 0x141D2B};
inline constexpr Tone softBlue{0xEEF5FF, 0x16253E};
inline constexpr Tone paleBlue{0xE4EFFF, 0x1D3152};

/// What a tone becomes for people who asked their desktop for more contrast: texts and symbols come nearer to
/// ink, lines stand out from what they divide, and blue reaches 7:1 on every surface.
constexpr Tone strengthened(Tone tone)
{
    constexpr Tone strongBlue{0x0F4699, 0x9CC4FF};
    if (tone == blue)
        return strongBlue;
    if (tone == steel)
        return ink;
    if (tone == muted)
        return steel;
    if (tone == fieldBorder)
        return muted;
    if (tone == line)
        return fieldBorder;
    return tone;
}

/// The stops of the content background, from the top leading to the bottom trailing corner.
inline constexpr std::array<Tone, 3> gradient{
    Tone{0xFAFCFF, 0x080D16}, Tone{0xF1F7FF, 0x0B1321}, Tone{0xE8F1FF, 0x0F1C30}};

/// The stops of the emphasised panels, the same in both schemes.
inline constexpr std::array<Rgb, 3> darkGradient{0x0A224C, 0x123776, 0x165CBF};
/// Titles and values on darkGradient, and text beside them.
inline constexpr Tone onDarkTitle{0xFFFFFF, 0xFFFFFF};
inline constexpr Tone onDarkText{0xEEF5FF, 0xEEF5FF};
/// Tiles on darkGradient are filled with onDarkTitle at this opacity.
inline constexpr double onDarkTileOpacity = 0.12;
/// The same for their edges.
inline constexpr double onDarkEdgeOpacity = 0.20;

/// What lies over the window while an alert is open.
inline constexpr Tone scrim{0x0A224C, 0x080D16};
inline constexpr double scrimOpacityLight = 0.40;
inline constexpr double scrimOpacityDark = 0.68;

/// The fill of a status pill is blue at this opacity.
inline constexpr double pillOpacity = 0.12;

} // namespace Brand
