#include "AppSection.h"
#include "Rows.h"

#include <rapidcheck/gtest.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

struct SectionRow : Named
{
    AppSection section;
    QString rawValue;
    QString title;
    QString systemImage;
    std::optional<AppRole> requiredRole;
};

class SectionTable : public testing::TestWithParam<SectionRow>
{ };

TEST_P(SectionTable, NamesTheSection)
{
    EXPECT_EQ(rawValue(GetParam().section), GetParam().rawValue);
    EXPECT_EQ(title(GetParam().section), GetParam().title);
    EXPECT_EQ(systemImage(GetParam().section), GetParam().systemImage);
}

TEST_P(SectionTable, IsFoundByItsRawValueOnly)
{
    EXPECT_EQ(appSection(GetParam().rawValue), GetParam().section);
    EXPECT_EQ(appSection(GetParam().rawValue.toUpper()), std::nullopt);
    EXPECT_EQ(appSection(u' ' + GetParam().rawValue), std::nullopt);
}

TEST_P(SectionTable, OpensToItsRole)
{
    EXPECT_EQ(requiredRole(GetParam().section), GetParam().requiredRole);
}

INSTANTIATE_TEST_SUITE_P(Sections, SectionTable,
    testing::Values(SectionRow{{"Dashboard"}, AppSection::dashboard, u"dashboard"_s, u"Dashboard"_s,
                        u"rectangle.grid.2x2.fill"_s, {}},
        SectionRow{
            {"Book"}, AppSection::book, u"book"_s, u"Book Remote Notary"_s, u"calendar.badge.plus"_s, {}},
        SectionRow{{"Sessions"}, AppSection::sessions, u"sessions"_s, u"Sessions"_s,
            u"doc.text.magnifyingglass"_s, {}},
        SectionRow{{"BusinessDashboard"}, AppSection::businessDashboard, u"businessDashboard"_s,
            u"Business"_s, u"building.2.fill"_s, AppRole::business},
        SectionRow{{"NotaryDashboard"}, AppSection::notaryDashboard, u"notaryDashboard"_s,
            u"Notary Dashboard"_s, u"checkmark.seal.fill"_s, AppRole::notary},
        SectionRow{{"AdminDashboard"}, AppSection::adminDashboard, u"adminDashboard"_s, u"Admin Dashboard"_s,
            u"gauge.with.dots.needle.bottom.50percent"_s, AppRole::admin},
        SectionRow{{"AdminRecords"}, AppSection::adminRecords, u"adminRecords"_s, u"Records"_s,
            u"tray.full.fill"_s, AppRole::admin},
        SectionRow{{"AdminUsers"}, AppSection::adminUsers, u"adminUsers"_s, u"Users"_s, u"person.3.fill"_s,
            AppRole::admin},
        SectionRow{{"AdminNotaries"}, AppSection::adminNotaries, u"adminNotaries"_s, u"Notaries"_s,
            u"person.badge.shield.checkmark.fill"_s, AppRole::admin},
        SectionRow{
            {"Settings"}, AppSection::settings, u"settings"_s, u"Settings"_s, u"gearshape.fill"_s, {}}),
    RowName());

TEST(AppSection, ListsAllSectionsInOrder)
{
    EXPECT_EQ(allAppSections,
        (std::array{AppSection::dashboard, AppSection::book, AppSection::sessions,
            AppSection::businessDashboard, AppSection::notaryDashboard, AppSection::adminDashboard,
            AppSection::adminRecords, AppSection::adminUsers, AppSection::adminNotaries,
            AppSection::settings}));
    EXPECT_EQ(appSection(QString()), std::nullopt);
}

struct RolesRow : Named
{
    QList<AppRole> roles;
    QList<AppSection> sections;
};

class RoleSections : public testing::TestWithParam<RolesRow>
{ };

TEST_P(RoleSections, FollowFromTheAvailableRoles)
{
    EXPECT_EQ(roleSections(GetParam().roles), GetParam().sections);
}

INSTANTIATE_TEST_SUITE_P(Roles, RoleSections,
    testing::Values(RolesRow{{"None"}, {}, {}}, RolesRow{{"Client"}, {AppRole::client}, {}},
        RolesRow{{"Business"}, {AppRole::client, AppRole::business}, {AppSection::businessDashboard}},
        RolesRow{{"Notary"}, {AppRole::notary}, {AppSection::notaryDashboard}},
        RolesRow{{"Admin"}, {AppRole::admin},
            {AppSection::adminDashboard, AppSection::adminRecords, AppSection::adminUsers,
                AppSection::adminNotaries}},
        RolesRow{{"NotaryAndAdmin"}, {AppRole::client, AppRole::notary, AppRole::admin},
            {AppSection::notaryDashboard, AppSection::adminDashboard, AppSection::adminRecords,
                AppSection::adminUsers, AppSection::adminNotaries}},
        RolesRow{{"AllInAnotherOrder"}, {AppRole::admin, AppRole::notary, AppRole::business, AppRole::client},
            {AppSection::businessDashboard, AppSection::notaryDashboard, AppSection::adminDashboard,
                AppSection::adminRecords, AppSection::adminUsers, AppSection::adminNotaries}}),
    RowName());

RC_GTEST_PROP(RoleSectionsProperty, HoldExactlyWhatTheRolesUnlockOnceAndInOrder, ())
{
    const auto picked = *rc::gen::container<std::vector<AppRole>>(
        rc::gen::elementOf(std::vector(allAppRoles.begin(), allAppRoles.end())));
    const QList<AppRole> roles(picked.begin(), picked.end());

    const QList<AppSection> sections = roleSections(roles);

    RC_ASSERT(std::is_sorted(sections.begin(), sections.end()));
    RC_ASSERT(std::adjacent_find(sections.begin(), sections.end()) == sections.end());
    for (const AppSection section : allAppSections) {
        const auto role = requiredRole(section);
        RC_ASSERT(sections.contains(section) == (role && roles.contains(*role)));
    }
}

} // namespace
