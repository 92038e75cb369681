#include "Shell/AppearanceModel.h"

#include "Cases.h"
#include "Printing.h"
#include "support/InMemoryDefaults.h"
#include "support/SteadyAppearance.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

class AppearanceModelTest : public testing::Test
{
protected:
    InMemoryDefaults defaults;
    SteadyAppearance system;
};

struct Stored
{
    const char* name;
    std::optional<QString> value;
    AppAppearanceMode mode;
    bool darkOnLightSystem;
    bool darkOnDarkSystem;
};

void PrintTo(const Stored& stored, std::ostream* out)
{
    *out << stored.name;
}

class StoredAppearance : public AppearanceModelTest, public testing::WithParamInterface<Stored>
{ };

TEST_P(StoredAppearance, IsAppliedFromTheStart)
{
    if (GetParam().value)
        defaults.setString(u"appearanceMode"_s, *GetParam().value);
    AppearanceModel model(defaults, system);
    EXPECT_EQ(model.mode.value(), GetParam().mode);
    EXPECT_EQ(model.isDark.value(), GetParam().darkOnLightSystem);
    system.become(true);
    EXPECT_EQ(model.isDark.value(), GetParam().darkOnDarkSystem);
    EXPECT_EQ(defaults.string(u"appearanceMode"_s), GetParam().value) << "only a choice is stored";
}

INSTANTIATE_TEST_SUITE_P(Values, StoredAppearance,
    testing::Values(Stored{"Nothing", std::nullopt, AppAppearanceMode::system, false, true},
        Stored{"System", u"system"_s, AppAppearanceMode::system, false, true},
        Stored{"Light", u"light"_s, AppAppearanceMode::light, false, false},
        Stored{"Dark", u"dark"_s, AppAppearanceMode::dark, true, true},
        Stored{"Unknown", u"sepia"_s, AppAppearanceMode::system, false, true},
        Stored{"Capitalised", u"Dark"_s, AppAppearanceMode::system, false, true}),
    ByName());

TEST_F(AppearanceModelTest, AChoiceIsStoredAndAppliedAtOnce)
{
    AppearanceModel model(defaults, system);
    QList<bool> seen;
    const auto watching = model.isDark.addNotifier([&] { seen += model.isDark.value(); });
    model.choose(AppAppearanceMode::dark);
    EXPECT_EQ(defaults.string(u"appearanceMode"_s), u"dark"_s);
    model.choose(AppAppearanceMode::light);
    EXPECT_EQ(defaults.string(u"appearanceMode"_s), u"light"_s);
    EXPECT_EQ(seen, (QList<bool>{true, false}));
}

TEST_F(AppearanceModelTest, ChoosingTheSystemFollowsItAgain)
{
    system.become(true);
    AppearanceModel model(defaults, system);
    model.choose(AppAppearanceMode::light);
    EXPECT_FALSE(model.isDark.value());
    model.choose(AppAppearanceMode::system);
    EXPECT_TRUE(model.isDark.value());
    system.become(false);
    EXPECT_FALSE(model.isDark.value());
}

TEST_F(AppearanceModelTest, ContrastIsTheDesktopsAloneWhateverTheMode)
{
    AppearanceModel model(defaults, system);
    EXPECT_FALSE(model.hasHighContrast.value());
    for (const auto mode : {AppAppearanceMode::light, AppAppearanceMode::dark, AppAppearanceMode::system}) {
        model.choose(mode);
        system.setHighContrast(true);
        EXPECT_TRUE(model.hasHighContrast.value());
        system.setHighContrast(false);
        EXPECT_FALSE(model.hasHighContrast.value());
    }
}

} // namespace
