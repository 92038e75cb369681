#include "AdminTest.h"
#include "Cases.h"

using namespace Qt::StringLiterals;

namespace {

class AdminUsersModelTest : public AdminTest<UsersList>
{
protected:
    /// Loads a list of this one user and selects it.
    AdminUserDetailModel& open(const QByteArray& user)
    {
        loadJson("[" + user + "]");
        model->select(0);
        return *model->detail();
    }
};

TEST_F(AdminUsersModelTest, HasItsTexts)
{
    const AdminListModel::Texts& texts = model->texts();
    EXPECT_EQ(texts.title, u"Users"_s);
    EXPECT_EQ(
        texts.subtitle, u"Search accounts, update contact details, change passwords, or remove access."_s);
    EXPECT_EQ(texts.searchPlaceholder, u"Search name, email, phone, role"_s);
    EXPECT_EQ(texts.noneSelected.systemImage, u"person.3.fill"_s);
    EXPECT_EQ(texts.noneSelected.title, u"Select a User"_s);
    EXPECT_EQ(texts.noneSelected.message, u"Choose a user to edit profile fields or change password."_s);
}

struct Search
{
    const char* name;
    QString search;
    QList<qint64> ids;
};

void PrintTo(const Search& search, std::ostream* out)
{
    *out << search.name;
}

class AdminUsersSearch : public AdminUsersModelTest, public testing::WithParamInterface<Search>
{ };

TEST_P(AdminUsersSearch, LooksIntoTheFields)
{
    loadJson(R"([
        {"id": 1, "full_name": "Anna Smith", "display_name": "Annie", "email": "anna@example.com",
         "phone": "(555) 010-0101", "role": "notary", "app_role": "business"},
        {"user_id": 2, "name": "Dora", "email": "DORA@EXAMPLE.ORG", "phone": 5550102, "app_role": "Admin"},
        {"id": 3, "display_name": "Émile", "address": "Smith Street"}])");
    model->search = GetParam().search;
    QList<qint64> ids;
    for (const AdminUserRecord& user : model->filtered())
        ids += user.id;
    EXPECT_EQ(ids, GetParam().ids);
}

INSTANTIATE_TEST_SUITE_P(Searches, AdminUsersSearch,
    testing::Values(Search{"Empty", {}, {1, 2, 3}}, Search{"Name", u"SMITH"_s, {1}},
        Search{"OtherNameKeysCountLess", u"annie"_s, {}}, Search{"Accents", u"éMILE"_s, {3}},
        Search{"Email", u"dora@example"_s, {2}}, Search{"Phone", u"555"_s, {1, 2}},
        Search{"Role", u"notary"_s, {1}}, Search{"OtherRoleKey", u"admin"_s, {2}},
        Search{"RoleByDefault", u"client"_s, {3}}, Search{"OverriddenRole", u"business"_s, {}},
        Search{"InTheirOrder", u"anna smith anna@example.com (555) 010-0101 notary"_s, {1}},
        Search{"OtherKeysAreNotSearched", u"street"_s, {}}),
    ByName());

struct Fields
{
    const char* name;
    QByteArray raw;
    QStringList texts; ///< name, e-mail, phone, role
    QString title; ///< of the row
};

void PrintTo(const Fields& fields, std::ostream* out)
{
    *out << fields.name;
}

class AdminUserFields : public AdminUsersModelTest, public testing::WithParamInterface<Fields>
{ };

TEST_P(AdminUserFields, AreFilledThroughTheirKeys)
{
    const AdminUserDetailModel& detail = open(GetParam().raw);
    EXPECT_EQ(
        (QStringList{detail.name.value(), detail.email.value(), detail.phone.value(), detail.role.value()}),
        GetParam().texts);
    EXPECT_EQ(detail.password.value(), QString());
    EXPECT_EQ(titles(), QStringList{GetParam().title});
    const QModelIndex row = model->rows().index(0);
    EXPECT_EQ(row.data(RowListModel::SecondaryRole).toString(), GetParam().texts.at(1));
    EXPECT_EQ(row.data(RowListModel::TrailingRole).toString(), GetParam().texts.at(3));
}

INSTANTIATE_TEST_SUITE_P(Users, AdminUserFields,
    testing::Values(Fields{"FullName",
                        R"({"display_name": "D", "name": "N", "full_name": "F", "email": "e", "phone": "p",
                            "app_role": "a", "role": "r"})",
                        {u"F"_s, u"e"_s, u"p"_s, u"r"_s}, u"F"_s},
        Fields{"Name", R"({"display_name": "D", "name": "N", "full_name": " ", "role": "null"})",
            {u"N"_s, {}, {}, u"client"_s}, u"N"_s},
        Fields{"DisplayName", R"({"display_name": "D", "name": null, "app_role": "business"})",
            {u"D"_s, {}, {}, u"business"_s}, u"D"_s},
        Fields{"EmailOnly", R"({"email": "e@x", "full_name": "NULL"})", {{}, u"e@x"_s, {}, u"client"_s},
            u"e@x"_s},
        Fields{"PhoneOnly", R"({"phone": 12})", {{}, {}, u"12"_s, u"client"_s}, u"12"_s},
        Fields{"Nothing", "{}", {{}, {}, {}, u"client"_s}, u"Unnamed user"_s},
        Fields{"UnknownRole", R"({"name": "N", "role": "title_agency"})", {u"N"_s, {}, {}, u"title_agency"_s},
            u"N"_s}),
    ByName());

TEST_F(AdminUsersModelTest, SavesEveryFieldAsTypedAndTheNameUnderBothKeys)
{
    AdminUserDetailModel& detail = open(R"({"id": 7, "display_name": "D", "full_name": "F"})");
    save();
    EXPECT_EQ(line(1), u"POST /admin/users/7"_s);
    EXPECT_EQ(
        body(1), object(R"({"full_name": "F", "name": "F", "email": "", "phone": "", "role": "client"})"));
    answer(1, "{}", 500);

    detail.name = u" New "_s;
    detail.email = u"e "_s;
    detail.phone = u"+1"_s;
    detail.role = u"Anything at all"_s;
    save();
    EXPECT_EQ(body(2),
        object(
            R"({"full_name": " New ", "name": " New ", "email": "e ", "phone": "+1", "role": "Anything at all"})"));
}

struct Password
{
    const char* name;
    QString typed;
    QString sent; ///< empty when it is not sent
};

void PrintTo(const Password& password, std::ostream* out)
{
    *out << password.name;
}

class AdminPassword : public AdminUsersModelTest, public testing::WithParamInterface<Password>
{ };

TEST_P(AdminPassword, GoesOutTrimmedUnderBothKeysOrNotAtAll)
{
    AdminUserDetailModel& detail = open(R"({"id": 7})");
    detail.password = GetParam().typed;
    save();
    QJsonObject expected{{u"full_name"_s, u""_s}, {u"name"_s, u""_s}, {u"email"_s, u""_s},
        {u"phone"_s, u""_s}, {u"role"_s, u"client"_s}};
    if (!GetParam().sent.isEmpty()) {
        expected[u"password"_s] = GetParam().sent;
        expected[u"new_password"_s] = GetParam().sent;
    }
    EXPECT_EQ(body(1), expected);
    answer(1, "{}");
    EXPECT_EQ(detail.password.value(), GetParam().typed) << "it stays in its field";
    answer(2, R"([{"id": 7}])");
    EXPECT_EQ(detail.password.value(), GetParam().typed);
    EXPECT_FALSE(detail.hasEdits());
}

INSTANTIATE_TEST_SUITE_P(Passwords, AdminPassword,
    testing::Values(Password{"Empty", {}, {}}, Password{"Blank", u" \t\n "_s, {}},
        Password{"Plain", u"secret 1"_s, u"secret 1"_s},
        Password{"WithBlanksAround", u" secret\n"_s, u"secret"_s}),
    ByName());

TEST_F(AdminUsersModelTest, APasswordIsForgottenWithItsPane)
{
    loadList({1, 2});
    model->select(0);
    model->detail()->password = u"secret"_s;
    model->select(1);
    ASSERT_TRUE(isAsking()) << "a password is an edit";
    leaving.answer(true);
    EXPECT_EQ(model->detail()->password.value(), QString());
}

TEST_F(AdminUsersModelTest, DeletesWithoutABody)
{
    open(R"({"user_id": "12"})");
    deleteRecord();
    EXPECT_EQ(line(1), u"DELETE /admin/users/12"_s);
    EXPECT_EQ(text(1), QByteArray());
}

TEST_F(AdminUsersModelTest, UsersWithoutAnIdHaveTheIdZero)
{
    loadJson(R"([{"name": "A"}, {"name": "B"}])");
    EXPECT_EQ(loadedIds(), (QList<qint64>{0, 0}));
    model->select(1);
    loadJson(R"([{"name": "C"}, {"name": "A"}, {"name": "B"}])");
    EXPECT_EQ(selectedTitle(), u"B"_s) << "told apart by all that they say";
    save();
    EXPECT_EQ(line(2), u"POST /admin/users/0"_s);
}

} // namespace
