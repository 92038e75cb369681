#include "AppAppearanceMode.h"
#include "Rows.h"

using namespace Qt::StringLiterals;

namespace {

struct ModeRow : Named
{
    AppAppearanceMode mode;
    QString rawValue;
    QString title;
    bool isDarkOnLightDesktop;
    bool isDarkOnDarkDesktop;
};

class ModeTable : public testing::TestWithParam<ModeRow>
{ };

TEST_P(ModeTable, NamesTheMode)
{
    EXPECT_EQ(rawValue(GetParam().mode), GetParam().rawValue);
    EXPECT_EQ(title(GetParam().mode), GetParam().title);
}

TEST_P(ModeTable, IsFoundByItsRawValueOnly)
{
    EXPECT_EQ(appAppearanceMode(GetParam().rawValue), GetParam().mode);
    EXPECT_EQ(appAppearanceMode(GetParam().title), std::nullopt);
    EXPECT_EQ(appAppearanceMode(GetParam().rawValue + u' '), std::nullopt);
}

TEST_P(ModeTable, DecidesWhetherTheWindowIsDark)
{
    EXPECT_EQ(isDark(GetParam().mode, false), GetParam().isDarkOnLightDesktop);
    EXPECT_EQ(isDark(GetParam().mode, true), GetParam().isDarkOnDarkDesktop);
}

INSTANTIATE_TEST_SUITE_P(Modes, ModeTable,
    testing::Values(ModeRow{{"System"}, AppAppearanceMode::system, u"system"_s, u"System"_s, false, true},
        ModeRow{{"Light"}, AppAppearanceMode::light, u"light"_s, u"Light"_s, false, false},
        ModeRow{{"Dark"}, AppAppearanceMode::dark, u"dark"_s, u"Dark"_s, true, true}),
    RowName());

TEST(AppAppearanceMode, ListsAllModesInOrder)
{
    EXPECT_EQ(allAppAppearanceModes,
        (std::array{AppAppearanceMode::system, AppAppearanceMode::light, AppAppearanceMode::dark}));
    EXPECT_EQ(appAppearanceMode(QString()), std::nullopt);
}

} // namespace
