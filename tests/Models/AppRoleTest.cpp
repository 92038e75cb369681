#include "AppRole.h"
#include "Rows.h"

using namespace Qt::StringLiterals;

namespace {

struct RoleRow : Named
{
    AppRole role;
    QString rawValue;
    QString title;
    QString systemImage;
};

class RoleTable : public testing::TestWithParam<RoleRow>
{ };

TEST_P(RoleTable, NamesTheRole)
{
    EXPECT_EQ(rawValue(GetParam().role), GetParam().rawValue);
    EXPECT_EQ(title(GetParam().role), GetParam().title);
    EXPECT_EQ(systemImage(GetParam().role), GetParam().systemImage);
}

TEST_P(RoleTable, IsFoundByItsRawValueOnly)
{
    EXPECT_EQ(appRole(GetParam().rawValue), GetParam().role);
    EXPECT_EQ(appRole(GetParam().rawValue.toUpper()), std::nullopt);
    EXPECT_EQ(appRole(GetParam().title), std::nullopt);
    EXPECT_EQ(appRole(u' ' + GetParam().rawValue), std::nullopt);
    EXPECT_EQ(appRole(GetParam().rawValue + u's'), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(Roles, RoleTable,
    testing::Values(RoleRow{{"Client"}, AppRole::client, u"client"_s, u"Client"_s, u"person.fill"_s},
        RoleRow{{"Business"}, AppRole::business, u"business"_s, u"Business"_s, u"building.2.fill"_s},
        RoleRow{{"Notary"}, AppRole::notary, u"notary"_s, u"Notary"_s, u"checkmark.seal.fill"_s},
        RoleRow{{"Admin"}, AppRole::admin, u"admin"_s, u"Admin"_s, u"gearshape.fill"_s}),
    RowName());

TEST(AppRole, ListsAllRolesInOrder)
{
    EXPECT_EQ(allAppRoles, (std::array{AppRole::client, AppRole::business, AppRole::notary, AppRole::admin}));
}

TEST(AppRole, IsNotFoundByAnEmptyText)
{
    EXPECT_EQ(appRole(QString()), std::nullopt);
    EXPECT_EQ(appRole(u""_s), std::nullopt);
}

} // namespace
