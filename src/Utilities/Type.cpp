#include "Type.h"

#include <QFontDatabase>
#include <QStringList>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace Type {
namespace {

constexpr double designPixels = 13;
double textFactor = 1;

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
    font.setFamilies({u"Inter"_s, fallback});
    font.setPixelSize(scaled(style.pixels));
    font.setWeight(style.weight);
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
