#include "SessionsModelTest.h"

#include "Cases.h"

#include <functional>

using namespace Qt::StringLiterals;

namespace {

class SessionsRoleTest : public SessionsModelTest
{ };

TEST_F(SessionsRoleTest, SwitchingTheRoleLoadsItsListAndDropsTheSelection)
{
    loadSessions({4, 2});
    model->select(2);
    auth.switchRole(AppRole::notary);
    EXPECT_EQ(selectedId(), std::nullopt);
    EXPECT_TRUE(loadedIds().isEmpty()) << "no row of the role before stands under the new role's words";
    EXPECT_EQ(model->rows().rowCount(), 0);
    EXPECT_EQ(model->subtitle(), u"Assigned and open remote notary sessions."_s);
    EXPECT_TRUE(model->isLoading.value());
    ASSERT_EQ(requestCount(), 2);
    EXPECT_EQ(line(1), u"GET /remote-notary/sessions?scope=notary_assigned"_s);
    answer(1, sessions({8, 9}));
    EXPECT_EQ(loadedIds(), (QList<qint64>{8, 9}));
    EXPECT_EQ(selectedId(), 8);
}

TEST_F(SessionsRoleTest, AFailedLoadForANewRoleShowsNothingOfTheOldOne)
{
    loadSessions({4, 2});
    auth.switchRole(AppRole::notary);
    answer(1, "{}", 500);
    EXPECT_EQ(alertOf(*model).value(0), u"Cannot Load Sessions"_s);
    EXPECT_TRUE(loadedIds().isEmpty());
    EXPECT_EQ(model->subtitle(), u"Assigned and open remote notary sessions."_s);
}

TEST_F(SessionsRoleTest, TheListOfTheRoleLeftBehindComesTooLate)
{
    for (const bool comesFirst : {true, false}) {
        const qsizetype old = requestCount();
        load();
        auth.switchRole(auth.role() == AppRole::admin ? AppRole::notary : AppRole::admin);
        answer(comesFirst ? old : old + 1, sessions({comesFirst ? 4 : 8}));
        answer(comesFirst ? old + 1 : old, sessions({comesFirst ? 8 : 4}));
        EXPECT_EQ(loadedIds(), QList<qint64>{8});
    }
}

/// What takes a role away, or gives another one.
struct RoleChange
{
    const char* name;
    std::function<void(AuthManager&)> happen;
    AppRole role;
};

class SessionsRoleChange : public SessionsRoleTest, public testing::WithParamInterface<RoleChange>
{ };

TEST_P(SessionsRoleChange, LeavesNoRowsOfTheRoleBefore)
{
    auth.switchRole(AppRole::admin);
    answer(0, sessions({4, 2}));
    GetParam().happen(auth);
    ASSERT_EQ(auth.role(), GetParam().role);
    EXPECT_EQ(model->role.value(), GetParam().role);
    EXPECT_EQ(model->detail(), nullptr);
    EXPECT_TRUE(loadedIds().isEmpty());
    const qsizetype last = requestCount() - 1;
    const bool isClient = GetParam().role == AppRole::client;
    EXPECT_EQ(line(last),
        isClient ? u"GET /remote-notary/sessions"_s : u"GET /remote-notary/sessions?scope=notary_assigned"_s);
    answer(last, sessions({8}));
    EXPECT_EQ(loadedIds(), QList<qint64>{8});
}

const AuthUser withoutAdmin = account(u"Priya"_s, {AppRole::notary});

INSTANTIATE_TEST_SUITE_P(Ways, SessionsRoleChange,
    testing::Values(
        RoleChange{"Switched", [](AuthManager& auth) { auth.switchRole(AppRole::client); }, AppRole::client},
        RoleChange{"UserFirst",
            [](AuthManager& auth) {
                auth.user = withoutAdmin;
                auth.activeRole = AppRole::notary;
            },
            AppRole::notary},
        RoleChange{"RoleFirst",
            [](AuthManager& auth) {
                auth.activeRole = AppRole::notary;
                auth.user = withoutAdmin;
            },
            AppRole::notary},
        RoleChange{"UserAlone", [](AuthManager& auth) { auth.user = withoutAdmin; }, AppRole::notary}),
    ByName());

TEST_F(SessionsRoleTest, ARefreshedProfileOfTheSameRoleChangesNothing)
{
    loadSessions({4, 2});
    AuthUser refreshed = *auth.user.value();
    refreshed.idToken = u"another"_s;
    auth.user = refreshed;
    EXPECT_EQ(loadedIds(), (QList<qint64>{4, 2}));
    EXPECT_EQ(requestCount(), 1);
}

TEST_F(SessionsRoleTest, ASignOutIsNoChangeOfRole)
{
    auth.switchRole(AppRole::admin);
    answer(0, sessions({4, 2}));
    int changes = 0;
    QObject::connect(model.get(), &SessionsModel::selectionChanged, model.get(), [&] { ++changes; });
    auth.signOut();
    EXPECT_EQ(auth.role(), AppRole::client);
    EXPECT_EQ(changes, 0);
    EXPECT_EQ(requestCount(), 1);
}

TEST_F(SessionsRoleTest, AModelThatHasGoneFollowsTheRoleNoMore)
{
    model.reset();
    auth.switchRole(AppRole::admin);
    EXPECT_EQ(requestCount(), 0);
}

} // namespace
