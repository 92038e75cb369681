#include "AdminTest.h"
#include "Cases.h"

using namespace Qt::StringLiterals;

namespace {

class AdminNotariesModelTest : public AdminTest<NotariesList>
{
protected:
    /// Loads a list of this one notary and selects it.
    AdminNotaryDetailModel& open(const QByteArray& notary)
    {
        loadJson("[" + notary + "]");
        model->select(0);
        return *model->detail();
    }
};

TEST_F(AdminNotariesModelTest, HasItsTexts)
{
    const AdminListModel::Texts& texts = model->texts();
    EXPECT_EQ(texts.title, u"Notaries"_s);
    EXPECT_EQ(
        texts.subtitle, u"Review notary profiles, commission details, availability, and account status."_s);
    EXPECT_EQ(texts.searchPlaceholder, u"Search notary name, email, county, state"_s);
    EXPECT_EQ(texts.noneSelected.systemImage, u"person.badge.shield.checkmark.fill"_s);
    EXPECT_EQ(texts.noneSelected.title, u"Select a Notary"_s);
    EXPECT_EQ(texts.noneSelected.message, u"Choose a notary to edit or delete."_s);
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

class AdminNotariesSearch : public AdminNotariesModelTest, public testing::WithParamInterface<Search>
{ };

TEST_P(AdminNotariesSearch, LooksIntoTheFields)
{
    loadJson(R"([
        {"id": 1, "name": "Noor Haddad", "email": "noor@example.com", "county": "Queens",
         "state": "New York", "phone": "555-0101", "commission_number": "01HA"},
        {"notary_id": 2, "full_name": "Lena", "email": "lena@example.org", "county": "Erie",
         "notarial_state": "Ohio", "billing_status": "trial"},
        {"id": 3}])");
    model->search = GetParam().search;
    QList<qint64> ids;
    for (const RemoteNotaryOption& notary : model->filtered())
        ids += notary.id;
    EXPECT_EQ(ids, GetParam().ids);
}

INSTANTIATE_TEST_SUITE_P(Searches, AdminNotariesSearch,
    testing::Values(Search{"Empty", {}, {1, 2, 3}}, Search{"Name", u"haddad"_s, {1}},
        Search{"NameByDefault", u"remote notary"_s, {3}}, Search{"Email", u"lena@ex"_s, {2}},
        Search{"County", u"queens"_s, {1}}, Search{"State", u"OHIO"_s, {2}},
        Search{"InTheirOrder", u"noor haddad noor@example.com queens new york"_s, {1}},
        Search{"NoPhones", u"555"_s, {}}, Search{"NoCommissions", u"01ha"_s, {}},
        Search{"NoBilling", u"trial"_s, {}}),
    ByName());

TEST_F(AdminNotariesModelTest, FillsThePane)
{
    const AdminNotaryDetailModel& detail = open(R"({"id": 7, "full_name": "Noor", "email": "e",
        "phone": "p", "state": "s", "county": "c", "notary_commission_number": 17,
        "commission_expires_at": "2028-09-30", "status": "trial", "is_active": "Yes"})");
    EXPECT_EQ(
        (QStringList{detail.name.value(), detail.email.value(), detail.phone.value(), detail.state.value(),
            detail.county.value(), detail.commissionNumber.value(), detail.commissionExpiration.value(),
            detail.billingStatus.value(), detail.password.value()}),
        (QStringList{u"Noor"_s, u"e"_s, u"p"_s, u"s"_s, u"c"_s, u"17"_s, u"2028-09-30"_s, u"trial"_s, {}}));
    EXPECT_TRUE(detail.isActive.value());
    EXPECT_FALSE(detail.hasEdits());
}

TEST_F(AdminNotariesModelTest, SavesEveryFieldAsTypedAndSomeUnderTwoKeys)
{
    AdminNotaryDetailModel& detail = open(R"({"id": 7, "active": true})");
    detail.name = u" Noor "_s;
    detail.email = u"e"_s;
    detail.phone = u"p"_s;
    detail.state = u"New York "_s;
    detail.county = u"c"_s;
    detail.commissionNumber = u"n"_s;
    detail.commissionExpiration = u"some day"_s;
    detail.billingStatus = u"Past Due"_s;
    save();
    EXPECT_EQ(line(1), u"POST /admin/notaries/7"_s);
    EXPECT_EQ(body(1), object(R"({"name": " Noor ", "full_name": " Noor ", "email": "e", "phone": "p",
        "notarial_state": "New York ", "state": "New York ", "county": "c", "commission_number": "n",
        "commission_expiration_date": "some day", "billing_status": "Past Due", "active": true})"));
}

TEST_F(AdminNotariesModelTest, SendsWhetherSheIsActiveAsABoolean)
{
    AdminNotaryDetailModel& detail = open(R"({"id": 7, "active": "1"})");
    EXPECT_TRUE(detail.isActive.value());
    detail.isActive = false;
    EXPECT_TRUE(detail.hasEdits());
    save();
    EXPECT_TRUE(body(1)[u"active"_s].isBool());
    EXPECT_FALSE(body(1)[u"active"_s].toBool());
}

TEST_F(AdminNotariesModelTest, SendsATypedPasswordTrimmedUnderBothKeys)
{
    AdminNotaryDetailModel& detail = open(R"({"id": 7})");
    detail.password = u"  "_s;
    save();
    EXPECT_EQ(body(1).size(), 11);
    answer(1, "{}", 500);
    detail.password = u" secret "_s;
    save();
    EXPECT_EQ(body(2).size(), 13);
    EXPECT_EQ(body(2)[u"password"_s], u"secret"_s);
    EXPECT_EQ(body(2)[u"new_password"_s], u"secret"_s);
}

TEST_F(AdminNotariesModelTest, DeletesWithoutABody)
{
    open(R"({"notary_id": 12})");
    deleteRecord();
    EXPECT_EQ(line(1), u"DELETE /admin/notaries/12"_s);
    EXPECT_EQ(text(1), QByteArray());
}

struct Row
{
    const char* name;
    QByteArray raw;
    QString title;
    QString where;
    QString pill;
    bool isIdle;
};

void PrintTo(const Row& row, std::ostream* out)
{
    *out << row.name;
}

class NotaryRow : public AdminNotariesModelTest, public testing::WithParamInterface<Row>
{ };

TEST_P(NotaryRow, SaysWhoTheNotaryIs)
{
    loadJson("[" + GetParam().raw + "]");
    const QModelIndex row = model->rows().index(0);
    EXPECT_EQ(row.data(RowListModel::TitleRole).toString(), GetParam().title);
    EXPECT_EQ(row.data(RowListModel::SecondaryRole).toString(), GetParam().where);
    EXPECT_EQ(row.data(RowListModel::PillRole).toString(), GetParam().pill);
    EXPECT_EQ(row.data(RowListModel::IdleRole).toBool(), GetParam().isIdle);
    EXPECT_EQ(row.data(RowListModel::MetaIconRole).toString(), u"checkmark.seal.fill"_s);
}

INSTANTIATE_TEST_SUITE_P(Notaries, NotaryRow,
    testing::Values(Row{"Whole", R"({"name": "Noor", "county": "Queens", "state": "New York", "active": 1,
                        "billing_status": "past due"})",
                        u"Noor"_s, u"Queens, New York"_s, u"past due"_s, false},
        Row{"CountyOnly", R"({"name": "Noor", "county": "Queens", "active": true})", u"Noor"_s, u"Queens"_s,
            u"active"_s, false},
        Row{"NeitherCountyNorState", R"({"email": "e@x", "is_active": "on"})", u"Remote Notary"_s, u"e@x"_s,
            u"active"_s, false},
        Row{"Inactive", R"({"name": "Noor", "billing_status": "active"})", u"Noor"_s, {}, u"inactive"_s,
            true}),
    ByName());

TEST_F(AdminNotariesModelTest, NotariesWithoutAnIdAreToldApartByAllThatTheySay)
{
    loadJson(R"([{"name": "A"}, {"name": "B"}])");
    EXPECT_EQ(loadedIds(), (QList<qint64>{0, 0}));
    model->select(1);
    loadJson(R"([{"name": "C"}, {"name": "A"}, {"name": "B"}])");
    EXPECT_EQ(selectedTitle(), u"B"_s);
    EXPECT_EQ(name(), u"B"_s);
}

} // namespace
