#include "Type.h"

#include "Palette.h"

#include <QFontDatabase>
#include <QStringList>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace Type {
namespace {

constexpr double designPixels = 13;
double textFactor = 1;

const QString family = u"Inter"_s;

/// From this size on, light letters on a dark ground look as bold as dark ones on a light ground.
constexpr int largePixels = 16;

/// Smaller ones come out bolder than that, by about one step of the scale. The lightest step is asked
/// for by its family: asked for by its weight, letters that the family lacks would come from a light face
/// too, and those have few.
void lighten(QFont& font, QFont::Weight weight, const QString& fallback)
{
    constexpr int step = QFont::Medium - QFont::Normal;
    if (weight > QFont::Normal)
        font.setWeight(QFont::Weight(weight - step));
    else
        font.setFamilies({u"Inter Light"_s, family, fallback});
}

} // namespace

double factor()
{
    return textFactor;
}

void followDesktop(double desktopPixels)
{
    textFactor = std::clamp(desktopPixels / designPixels, 1.0, 2.0);
}

int scaled(int pixels)
{
    return static_cast<int>(std::lround(pixels * textFactor));
}

QFont font(const Style& style)
{
    static const QString fallback = QFontDatabase::systemFont(QFontDatabase::GeneralFont).family();
    QFont font;
    font.setFamilies({family, fallback});
    font.setPixelSize(scaled(style.pixels));
    font.setWeight(style.weight);
    if (Palette::isDark() && font.pixelSize() < largePixels)
        lighten(font, style.weight, fallback);
    font.setHintingPreference(QFont::PreferNoHinting);
    if (style.spacing != 0)
        font.setLetterSpacing(QFont::AbsoluteSpacing, style.pixels * textFactor * style.spacing / 100);
    return font;
}

int lineHeight(const Style& style)
{
    return scaled(style.lineHeight);
}

} // namespace Type
