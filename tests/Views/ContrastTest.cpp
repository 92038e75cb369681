#include "Components/Card.h"
#include "ComponentsTest.h"
#include "Palette.h"

#include <QScopeGuard>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

/// The relative luminance of WCAG 2, 0 to 1.
double luminance(const QColor& color)
{
    const auto linear = [](double share) {
        return share <= 0.03928 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

/// The contrast ratio of WCAG 2, 1 to 21.
double contrast(const QColor& a, const QColor& b)
{
    const double first = luminance(a);
    const double second = luminance(b);
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

struct SchemeRow
{
    std::string name;
    bool isDark;
    bool isHigh;
};

/// The colours of a scheme.
class Contrast : public testing::TestWithParam<SchemeRow>
{
protected:
    Contrast()
    {
        Palette::setDark(GetParam().isDark);
        Palette::setHighContrast(GetParam().isHigh);
    }
    ~Contrast() override
    {
        Palette::setDark(false);
        Palette::setHighContrast(false);
    }

    /// What texts and controls stand on.
    static QList<QColor> surfaces()
    {
        QList<QColor> colors;
        for (const Brand::Tone tone : {Brand::card, Brand::panel, Brand::softBlue, Brand::paleBlue,
                 Brand::fieldFill, Brand::gradient[0], Brand::gradient[1], Brand::gradient[2]})
            colors += Palette::color(tone);
        return colors;
    }
    static double lowest(Brand::Tone tone)
    {
        double lowest = 21;
        for (const QColor& surface : surfaces())
            lowest = std::min(lowest, contrast(Palette::color(tone), surface));
        return lowest;
    }
};

} // namespace

TEST_P(Contrast, OfTextsOnEverySurface)
{
    const double least = GetParam().isHigh ? 7 : 4.5;
    for (const Brand::Tone tone : {Brand::navy, Brand::blue, Brand::ink, Brand::steel})
        EXPECT_GE(lowest(tone), least) << std::hex << tone.in(GetParam().isDark);
    EXPECT_GE(contrast(Palette::color(Brand::card), Palette::color(Brand::blue)), least) << "on a button";
}

TEST_P(Contrast, OfSymbolsAndStatesOnEverySurface)
{
    EXPECT_GE(lowest(Brand::muted), GetParam().isHigh ? 4.5 : 3);
    EXPECT_GE(lowest(Brand::fieldBorder), GetParam().isHigh ? 3 : 1.3) << "the edge of a field";
}

TEST_P(Contrast, WhatAFieldSuggestsIsReadAndNotTakenForWhatWasEntered)
{
    EXPECT_GE(contrast(Palette::placeholder(), Palette::color(Brand::fieldFill)), 4.5);
    EXPECT_GE(contrast(Palette::placeholder(), Palette::color(Brand::ink)), 1.5);
    EXPECT_EQ(Palette::applicationPalette().color(QPalette::PlaceholderText), Palette::placeholder());
}

INSTANTIATE_TEST_SUITE_P(Schemes, Contrast,
    testing::Values(SchemeRow{"Light", false, false}, SchemeRow{"Dark", true, false},
        SchemeRow{"LightHigh", false, true}, SchemeRow{"DarkHigh", true, true}),
    ByName());

class HighContrast : public ComponentsTest
{ };

TEST_F(HighContrast, IsTakenAndGivenBackAtOnce)
{
    const auto reset = qScopeGuard([] { style()->setHighContrast(false); });
    auto* card = shown(new Card);
    const QImage before = card->grab().toImage();
    const QColor selection = QApplication::palette().color(QPalette::Highlight);
    QSignalSpy changes(style(), &BrandStyle::schemeChanged);
    style()->setHighContrast(true);
    EXPECT_NE(card->grab().toImage(), before) << "its edge is stronger";
    EXPECT_NE(QApplication::palette().color(QPalette::Highlight), selection);
    style()->setHighContrast(true);
    EXPECT_EQ(changes.size(), 1) << "nothing has changed";
    style()->setHighContrast(false);
    EXPECT_EQ(card->grab().toImage(), before);
    EXPECT_EQ(changes.size(), 2);
}
