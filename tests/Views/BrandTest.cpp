#include "ComponentsTest.h"
#include "Palette.h"
#include "Type.h"

#include "Components/Card.h"
#include "Components/PlainLabel.h"

#include <QLinearGradient>
#include <QScopeGuard>

using namespace Qt::StringLiterals;

namespace {

struct ToneRow
{
    std::string name;
    Brand::Tone tone;
    const char* light;
    const char* dark;
};

class BrandTone : public testing::TestWithParam<ToneRow>
{ };

QString inScheme(Brand::Tone tone, bool dark)
{
    Palette::setDark(dark);
    const auto reset = qScopeGuard([] { Palette::setDark(false); });
    return Palette::color(tone).name(QColor::HexArgb);
}

QStringList stops(const QBrush& brush)
{
    QStringList colors;
    for (const auto& [position, color] : brush.gradient()->stops())
        colors << u"%1 %2"_s.arg(position).arg(color.name());
    return colors;
}

} // namespace

TEST_P(BrandTone, HasItsColourInEachScheme)
{
    EXPECT_EQ(inScheme(GetParam().tone, false), u"#ff"_s + QString::fromLatin1(GetParam().light));
    EXPECT_EQ(inScheme(GetParam().tone, true), u"#ff"_s + QString::fromLatin1(GetParam().dark));
}

INSTANTIATE_TEST_SUITE_P(Palette, BrandTone,
    testing::Values(ToneRow{"navy", Brand::navy, "0a224c", "dae8ff"},
        ToneRow{"blue", Brand::blue, "165cbf", "599cff"}, ToneRow{"ink", Brand::ink, "121c2c", "eef4fc"},
        ToneRow{"steel", Brand::steel, "4a5b73", "adbbcf"},
        ToneRow{"muted", Brand::muted, "657c99", "8b9db5"}, ToneRow{"line", Brand::line, "d6e1ef", "2b394d"},
        ToneRow{"fieldBorder", Brand::fieldBorder, "c3d2e5", "3e526e"},
        ToneRow{"fieldFill", Brand::fieldFill, "ffffff", "121924"},
        ToneRow{"card", Brand::card, "ffffff", "0f1622"}, ToneRow{"panel", Brand::panel, "f7fafe", "141d2b"},
        ToneRow{"softBlue", Brand::softBlue, "eef5ff", "16253e"},
        ToneRow{"paleBlue", Brand::paleBlue, "e4efff", "1d3152"}),
    ByName());

class BrandScheme : public ComponentsTest
{ };

TEST_F(BrandScheme, GradientHasThreeStopsOfItsOwnInEachScheme)
{
    const QRectF area(0, 0, 100, 50);
    EXPECT_EQ(
        stops(Palette::gradient(area)), (QStringList{u"0 #fafcff"_s, u"0.5 #f1f7ff"_s, u"1 #e8f1ff"_s}));
    style()->setDark(true);
    EXPECT_EQ(
        stops(Palette::gradient(area)), (QStringList{u"0 #080d16"_s, u"0.5 #0b1321"_s, u"1 #0f1c30"_s}));
}

TEST_F(BrandScheme, DarkGradientIsTheSameInBoth)
{
    const QRectF area(0, 0, 100, 50);
    const QStringList fixed{u"0 #0a224c"_s, u"0.5 #123776"_s, u"1 #165cbf"_s};
    EXPECT_EQ(stops(Palette::darkGradient(area)), fixed);
    style()->setDark(true);
    EXPECT_EQ(stops(Palette::darkGradient(area)), fixed);
}

TEST_F(BrandScheme, GradientsRunFromTheTopLeadingCorner)
{
    const auto start = [] {
        const auto brush = Palette::darkGradient({0, 0, 100, 50});
        return static_cast<const QLinearGradient*>(brush.gradient())->start();
    };
    EXPECT_EQ(start(), QPointF(0, 0));
    QApplication::setLayoutDirection(Qt::RightToLeft);
    EXPECT_EQ(start(), QPointF(100, 0));
    QApplication::setLayoutDirection(Qt::LeftToRight);
}

TEST_F(BrandScheme, AChangeReColoursWhatIsOnScreenAtOnce)
{
    auto* card = shown(new Card);
    const auto middle = card->rect().center();
    EXPECT_EQ(pixel(card, middle), QColor(0xff, 0xff, 0xff));
    QSignalSpy changes(style(), &BrandStyle::schemeChanged);
    style()->setDark(true);
    EXPECT_EQ(changes.size(), 1);
    EXPECT_EQ(pixel(card, middle), QColor(0x0f, 0x16, 0x22));
    EXPECT_EQ(QApplication::palette().color(QPalette::Text), QColor(0xee, 0xf4, 0xfc));
    style()->setDark(false);
    EXPECT_EQ(pixel(card, middle), QColor(0xff, 0xff, 0xff));
}

TEST_F(BrandScheme, DarkPanelsLookTheSameAfterAChange)
{
    auto* panel = shown(new Surface(Surface::Kind::dark, 20));
    const auto before = panel->grab().toImage();
    style()->setDark(true);
    const auto after = panel->grab().toImage();
    const auto middle = panel->rect().center();
    EXPECT_EQ(before.pixelColor(middle), after.pixelColor(middle));
    EXPECT_NE(before.pixelColor(middle), QColor(Qt::black));
}

TEST_F(BrandScheme, SettingTheSameSchemeTellsNobody)
{
    QSignalSpy changes(style(), &BrandStyle::schemeChanged);
    style()->setDark(false);
    EXPECT_EQ(changes.size(), 0);
}

struct FactorRow
{
    std::string name;
    double desktopPixels;
    double factor;
    int lineHeight;
};

class TypeFactor : public testing::TestWithParam<FactorRow>
{
protected:
    ~TypeFactor() override { Type::followDesktop(13); }
};

TEST_P(TypeFactor, FollowsTheDesktopUpToTwice)
{
    Type::followDesktop(GetParam().desktopPixels);
    EXPECT_DOUBLE_EQ(Type::factor(), GetParam().factor);
    EXPECT_EQ(Type::lineHeight(Type::body), GetParam().lineHeight);
    EXPECT_EQ(Type::font(Type::body).pixelSize(), qRound(13 * GetParam().factor));
}

INSTANTIATE_TEST_SUITE_P(Sizes, TypeFactor,
    testing::Values(FactorRow{"Smaller", 11, 1, 20}, FactorRow{"Design", 13, 1, 20},
        FactorRow{"HalfAgain", 19.5, 1.5, 30}, FactorRow{"Twice", 26, 2, 40}, FactorRow{"Beyond", 52, 2, 40}),
    ByName());
