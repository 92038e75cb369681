#pragma once

#include "Type.h"

/// Room between things, on a grid of 4 pixels. It does not grow with the text.
namespace Spacing {

inline constexpr int page = 28;
inline constexpr int pageCompact = 20;
inline constexpr int detail = 20;
inline constexpr int pane = 24;
inline constexpr int detailCompact = 16;
inline constexpr int card = 20;
inline constexpr int cardCompact = 16;
inline constexpr int betweenCards = 20;
inline constexpr int betweenCardsCompact = 16;
inline constexpr int fieldsDown = 16;
inline constexpr int fieldsAcross = 12;
inline constexpr int captionToField = 6;
inline constexpr int buttons = 12;
inline constexpr int fieldPadding = 12;
/// Where the content is narrower than this, pages are compact.
inline constexpr int compactBelow = 880;
inline constexpr int compactDetailBelow = 560;

} // namespace Spacing

namespace Radius {

inline constexpr int card = 12;
inline constexpr int block = 10;
inline constexpr int control = 8;
inline constexpr int smallButton = 7;
inline constexpr int hero = 16;
inline constexpr int alert = 14;
inline constexpr int menu = 10;
inline constexpr int menuItem = 6;
inline constexpr int chip = 10;

} // namespace Radius

/// Heights of what holds text, and sizes of icons: these grow with it.
namespace Height {

inline int control()
{
    return Type::scaled(36);
}
inline int large()
{
    return Type::scaled(44);
}
inline int small()
{
    return Type::scaled(28);
}
inline int compact()
{
    return Type::scaled(32);
}
inline int pill()
{
    return Type::scaled(22);
}

} // namespace Height

namespace IconSize {

inline int button()
{
    return Type::scaled(16);
}
inline int sidebar()
{
    return Type::scaled(18);
}
inline int chip()
{
    return Type::scaled(20);
}
inline int chevron()
{
    return Type::scaled(14);
}
inline int large()
{
    return Type::scaled(32);
}

} // namespace IconSize
