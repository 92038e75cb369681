#include "Symbols.h"
#include "ComponentsTest.h"
#include "Palette.h"

#include <QImage>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace {

/// Every symbol that a screen, a role, a section or a component names.
const QStringList namesInUse{u"arrow.clockwise"_s, u"arrow.up.right.square"_s, u"building.2.fill"_s,
    u"calendar"_s, u"calendar.badge.plus"_s, u"checkmark"_s, u"checkmark.circle"_s,
    u"checkmark.circle.fill"_s, u"checkmark.seal.fill"_s, u"chevron.down"_s, u"chevron.left"_s,
    u"chevron.right"_s, u"chevron.up.chevron.down"_s, u"clock.badge.exclamationmark"_s, u"clock.fill"_s,
    u"doc.fill"_s, u"doc.richtext.fill"_s, u"doc.text.fill"_s, u"doc.text.magnifyingglass"_s,
    u"dollarsign.circle.fill"_s, u"envelope.fill"_s, u"exclamationmark.triangle"_s,
    u"gauge.with.dots.needle.bottom.50percent"_s, u"gearshape.fill"_s, u"hand.point.left.fill"_s,
    u"icloud.and.arrow.up.fill"_s, u"key.fill"_s, u"lock.fill"_s, u"lock.open.fill"_s, u"lock.shield.fill"_s,
    u"macwindow"_s, u"magnifyingglass"_s, u"megaphone.fill"_s, u"menubar.rectangle"_s, u"message.fill"_s,
    u"minus.circle"_s, u"person.2.fill"_s, u"person.3.fill"_s, u"person.badge.plus"_s,
    u"person.badge.shield.checkmark"_s, u"person.badge.shield.checkmark.fill"_s, u"person.crop.circle"_s,
    u"person.fill"_s, u"person.text.rectangle"_s, u"person.text.rectangle.fill"_s, u"photo.fill"_s,
    u"plus.circle.fill"_s, u"power"_s, u"power.circle.fill"_s, u"rectangle.grid.2x2.fill"_s,
    u"rectangle.portrait.and.arrow.right"_s, u"safari"_s, u"tablecells.fill"_s, u"trash"_s,
    u"tray.and.arrow.up.fill"_s, u"tray.full.fill"_s, u"video.badge.checkmark"_s, u"xmark.circle.fill"_s};

QImage picture(const QString& name, const QColor& color = Qt::red, int size = 32, qreal ratio = 1)
{
    return Symbols::pixmap(name, color, size, ratio).toImage().convertToFormat(QImage::Format_ARGB32);
}

int solidPixels(const QImage& image)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            count += qAlpha(image.pixel(x, y)) > 200;
    }
    return count;
}

} // namespace

TEST(Symbols, EveryNameInUseIsListedAndNoOther)
{
    auto listed = Symbols::names();
    auto used = namesInUse;
    listed.sort();
    used.sort();
    EXPECT_EQ(listed, used);
}

TEST(Symbols, EveryNameDrawsSomething)
{
    const auto placeholder = picture(u"no.such.symbol"_s);
    for (const auto& name : namesInUse) {
        EXPECT_TRUE(Symbols::contains(name)) << qPrintable(name);
        EXPECT_GT(solidPixels(picture(name)), 20) << qPrintable(name);
        EXPECT_NE(picture(name), placeholder) << qPrintable(name);
    }
}

TEST(Symbols, AnUnknownNameShowsAPlaceholder)
{
    EXPECT_FALSE(Symbols::contains(u"no.such.symbol"_s));
    EXPECT_GT(solidPixels(picture(u"no.such.symbol"_s)), 20);
}

TEST(Symbols, AreTintedWithTheColourAskedFor)
{
    const auto image = picture(u"checkmark.seal.fill"_s, QColor(0x16, 0x5c, 0xbf));
    EXPECT_EQ(image.pixelColor(5, 16), QColor(0x16, 0x5c, 0xbf));
}

TEST(Symbols, AreDrawnInTheResolutionOfTheScreen)
{
    const auto sharp = Symbols::pixmap(u"trash"_s, Qt::black, 16, 2);
    EXPECT_EQ(sharp.size(), QSize(32, 32));
    EXPECT_EQ(sharp.devicePixelRatio(), 2);
}

TEST(Symbols, TheMenuBarHasItsBarAtTheTop)
{
    const auto image = picture(u"menubar.rectangle"_s, Qt::black, 56);
    const int upper = solidPixels(image.copy(0, 0, 56, 28));
    const int lower = solidPixels(image.copy(0, 28, 56, 28));
    EXPECT_GT(upper, lower);
}

TEST(Symbols, AnIconFollowsTheScheme)
{
    const auto icon = Symbols::icon(u"checkmark.seal.fill"_s, Brand::blue);
    const auto color = [&icon] { return icon.pixmap(32).toImage().pixelColor(5, 16); };
    EXPECT_EQ(color(), QColor(0x16, 0x5c, 0xbf));
    Palette::setDark(true);
    EXPECT_EQ(color(), QColor(0x59, 0x9c, 0xff));
    Palette::setDark(false);
}
