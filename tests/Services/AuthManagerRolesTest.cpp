#include "AuthManagerTest.h"

using namespace Qt::StringLiterals;

namespace {

using Roles = QList<AppRole>;

struct Row : Named
{
    std::optional<QString> role;
    Roles flags; ///< of business, notary and admin
    Roles expected;
};

AuthUser userOf(const Row& row)
{
    AuthUser user = bareUser(row.role);
    if (!row.flags.isEmpty()) {
        user.isBusiness = row.flags.contains(AppRole::business);
        user.isNotary = row.flags.contains(AppRole::notary);
        user.isAdmin = row.flags.contains(AppRole::admin);
    }
    return user;
}

class AvailableRoles : public testing::TestWithParam<Row>
{ };

TEST_P(AvailableRoles, FollowFromWordAndFlags)
{
    const AuthUser user = userOf(GetParam());
    EXPECT_EQ(AuthManager::availableRoles(user), GetParam().expected);
    EXPECT_EQ(AuthManager::defaultRole(user), GetParam().expected.last());
}

constexpr AppRole C = AppRole::client;
constexpr AppRole B = AppRole::business;
constexpr AppRole N = AppRole::notary;
constexpr AppRole A = AppRole::admin;

INSTANTIATE_TEST_SUITE_P(Users, AvailableRoles,
    testing::Values(
        // clang-format off
        Row{{"Nothing"}, {}, {}, {C}},
        Row{{"Empty"}, u""_s, {}, {C}},
        Row{{"Client"}, u"client"_s, {}, {C}},
        Row{{"Unknown"}, u"superuser"_s, {}, {C}},
        Row{{"Business"}, u"business"_s, {}, {C, B}},
        Row{{"BusinessScheduler"}, u"business_scheduler"_s, {}, {C, B}},
        Row{{"TitleAgency"}, u"title_agency"_s, {}, {C, B}},
        Row{{"TitleAgencyInMixedCase"}, u"Title_AGENCY"_s, {}, {C, B}},
        Row{{"LawFirm"}, u"law_firm"_s, {}, {C, B}},
        Row{{"Notary"}, u"notary"_s, {}, {C, N}},
        Row{{"RemoteNotary"}, u"remote_notary"_s, {}, {C, N}},
        Row{{"RemoteNotaryProvider"}, u"remote_notary_provider"_s, {}, {C, N}},
        Row{{"SigningAgent"}, u"signing_agent"_s, {}, {C, N}},
        Row{{"Admin"}, u"admin"_s, {}, {C, A}},
        Row{{"SuperAdmin"}, u"super_admin"_s, {}, {C, A}},
        Row{{"Administrator"}, u"ADMINISTRATOR"_s, {}, {C, A}},
        Row{{"Staff"}, u"staff"_s, {}, {C, A}},
        Row{{"WordsMatchWhole"}, u"admin "_s, {}, {C}},
        Row{{"AdminFlag"}, u"client"_s, {A}, {C, A}},
        Row{{"NotaryFlag"}, {}, {N}, {C, N}},
        Row{{"BusinessFlag"}, {}, {B}, {C, B}},
        Row{{"AdminFlagAndNotaryWord"}, u"notary"_s, {A}, {C, N, A}},
        Row{{"FlagAndWordOfOneRole"}, u"notary"_s, {N}, {C, N}},
        Row{{"AllFlags"}, u"client"_s, {A, N, B}, {C, B, N, A}},
        Row{{"BusinessAndNotary"}, u"law_firm"_s, {N}, {C, B, N}} // clang-format on
        ),
    RowName());

using SwitchRole = AuthManagerTest;

TEST_F(SwitchRole, ChangesAndRemembersTheRole)
{
    startSignedIn(bareUser(u"notary"_s));
    EXPECT_EQ(auth->role(), AppRole::notary);
    auth->switchRole(AppRole::client);
    EXPECT_EQ(auth->activeRole.value(), AppRole::client);
    EXPECT_EQ(auth->role(), AppRole::client);
    EXPECT_EQ(storedRole(), u"client"_s);
}

TEST_F(SwitchRole, IgnoresARoleThatTheUserDoesNotHold)
{
    startSignedIn();
    auth->switchRole(AppRole::admin);
    EXPECT_EQ(auth->activeRole.value(), AppRole::client);
    EXPECT_EQ(storedRole(), std::nullopt);
}

TEST_F(SwitchRole, KnowsOnlyTheClientWhenSignedOut)
{
    start();
    auth->switchRole(AppRole::notary);
    EXPECT_EQ(storedRole(), std::nullopt);
    EXPECT_EQ(auth->availableRoles(), Roles{AppRole::client});
    auth->switchRole(AppRole::client);
    EXPECT_EQ(storedRole(), u"client"_s);
}

TEST_F(SwitchRole, ARoleThatHasBeenLostGivesWayToTheDefault)
{
    startSignedIn(bareUser(u"notary"_s));
    auth->user = bareUser(u"law_firm"_s);
    EXPECT_EQ(auth->activeRole.value(), AppRole::notary);
    EXPECT_EQ(auth->role(), AppRole::business);
    EXPECT_EQ(auth->availableRoles(), (Roles{AppRole::client, AppRole::business}));
}

} // namespace
