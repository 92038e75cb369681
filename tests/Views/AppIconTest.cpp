#include "AppIcon.h"

#include <gtest/gtest.h>

#include <QColor>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

/// A desktop whose icon theme has what the build tree installs, until the test ends.
class DesktopTheme
{
public:
    DesktopTheme()
    {
        QDir(folder_.path()).mkdir(u"hicolor"_s);
        QFile index(folder_.filePath(u"hicolor/index.theme"_s));
        EXPECT_TRUE(index.open(QFile::WriteOnly));
        index.write("[Icon Theme]\nName=Hicolor\nComment=All\nDirectories=symbolic/apps\n"
                    "[symbolic/apps]\nSize=16\nMinSize=8\nMaxSize=512\nType=Scalable\n");
        QIcon::setThemeSearchPaths(
            {folder_.path(), QCoreApplication::applicationDirPath() + u"/../share/icons"_s});
        QIcon::setThemeName(u"hicolor"_s);
    }

    ~DesktopTheme()
    {
        QIcon::setThemeSearchPaths(paths_);
        QIcon::setThemeName(name_);
    }

    Q_DISABLE_COPY_MOVE(DesktopTheme)

private:
    QTemporaryDir folder_;
    const QStringList paths_ = QIcon::themeSearchPaths();
    const QString name_ = QIcon::themeName();
};

double luminance(QColor color)
{
    const auto linear
        = [](double part) { return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4); };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double contrast(QColor one, QColor other)
{
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

} // namespace

TEST(AppIcon, WindowsHaveItInEverySizeThatDesktopsShow)
{
    const QList<QSize> sizes = AppIcon::window().availableSizes();
    for (const int size : {16, 22, 24, 32, 48, 64, 128})
        EXPECT_TRUE(sizes.contains(QSize(size, size))) << size;
}

TEST(AppIcon, TheStatusBarHasTheNamedDrawingWhereTheDesktopKnowsIt)
{
    const DesktopTheme theme;
    EXPECT_EQ(AppIcon::statusBar(true).name(), u"app.quorvel.Quorvel-symbolic"_s);
}

TEST(AppIcon, TheStatusBarHasTheIconInColourWhereTheDesktopDoesNotDrawIt)
{
    const DesktopTheme theme;
    EXPECT_TRUE(AppIcon::statusBar(false).name().isEmpty());
    EXPECT_FALSE(AppIcon::statusBar(false).isNull());
}

TEST(AppIcon, TheStatusBarHasTheIconInColourWhereTheDesktopDoesNotKnowTheDrawing)
{
    EXPECT_TRUE(AppIcon::statusBar(true).name().isEmpty());
    EXPECT_FALSE(AppIcon::statusBar(true).isNull());
}

/// Some panels show the drawing as it is.
TEST(AppIcon, TheDrawingReadsOnLightAndDarkPanelsUntinted)
{
    const DesktopTheme theme;
    for (const int size : {16, 22, 48}) {
        const QImage image = AppIcon::statusBar(true).pixmap(size).toImage();
        int opaque = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const QColor color = image.pixelColor(x, y);
                if (color.alpha() < 255)
                    continue;
                ++opaque;
                ASSERT_GE(contrast(color, QColor(255, 255, 255)), 3) << size;
                ASSERT_GE(contrast(color, QColor(32, 32, 32)), 3) << size;
            }
        }
        EXPECT_GT(opaque, size * size / 4) << "hardly anything of it is drawn at " << size;
    }
}
