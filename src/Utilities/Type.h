#pragma once

#include <QFont>

/// The type scale. Sizes grow with the text size that the person has set for the desktop, up to twice the
/// design's; everything that holds text asks for its height here, so that nothing is clipped.
namespace Type {

struct Style
{
    int pixels;
    int lineHeight; ///< pixels from one line to the next
    QFont::Weight weight;
    double spacing = 0; ///< extra room after each letter, in percent of the size

    bool operator==(const Style&) const = default;
};

inline constexpr Style fee{32, 40, QFont::DemiBold, -1.5};
inline constexpr Style display{28, 36, QFont::DemiBold, -1.5};
inline constexpr Style title{22, 28, QFont::DemiBold, -1};
inline constexpr Style heading{16, 24, QFont::DemiBold};
inline constexpr Style sub{14, 20, QFont::DemiBold};
inline constexpr Style body{13, 20, QFont::Normal};
inline constexpr Style strong{13, 20, QFont::DemiBold};
inline constexpr Style label{13, 20, QFont::Medium};
inline constexpr Style small{12, 16, QFont::Normal};
inline constexpr Style caption{12, 16, QFont::Medium};
inline constexpr Style group{12, 16, QFont::DemiBold};

/// What the desktop's text size is to the design's, 1 to 2.
double factor();
/// \param desktopPixels  height of the desktop's own text; the design's is 13
void followDesktop(double desktopPixels);

/// A length of the design, grown like the text.
int scaled(int pixels);
QFont font(const Style& style);
int lineHeight(const Style& style);

} // namespace Type
