#include "RemoteNotaryOption.h"

#include "Rows.h"

using namespace Qt::StringLiterals;

namespace {

TEST(RemoteNotaryOption, IsReadFromItsPreferredKeys)
{
    const JSONObject raw = jsonObject(R"({
        "id": 3, "notary_id": 4, "user_id": "5", "name": "Ada", "full_name": "x", "email": "ada@example.com",
        "phone": "(555) 010-0199", "notarial_state": "NY", "state": "x", "county": "Kings",
        "commission_number": "C1", "notary_commission_number": "x",
        "commission_expiration_date": "2030-01-01", "commission_expires_at": "x",
        "billing_status": "trial", "status": "x", "active": "Yes"})");
    const RemoteNotaryOption notary = RemoteNotaryOption::fromRaw(raw);
    EXPECT_EQ(notary.id, 3);
    EXPECT_EQ(notary.userId, 5);
    EXPECT_EQ(notary.name, u"Ada"_s);
    EXPECT_EQ(notary.email, u"ada@example.com"_s);
    EXPECT_EQ(notary.phone, u"(555) 010-0199"_s);
    EXPECT_EQ(notary.state, u"NY"_s);
    EXPECT_EQ(notary.county, u"Kings"_s);
    EXPECT_EQ(notary.commissionNumber, u"C1"_s);
    EXPECT_EQ(notary.commissionExpirationDate, u"2030-01-01"_s);
    EXPECT_EQ(notary.billingStatus, u"trial"_s);
    EXPECT_TRUE(notary.active);
    EXPECT_EQ(notary.raw, raw);
}

TEST(RemoteNotaryOption, KeepsAnIdOfZeroOverTheSecondKey)
{
    EXPECT_EQ(RemoteNotaryOption::fromRaw(jsonObject(R"({"id":0,"notary_id":4})")).id, 0);
}

TEST(RemoteNotaryOption, EqualsByIdEmailBillingAndActivity)
{
    const RemoteNotaryOption one = RemoteNotaryOption::fromRaw(
        jsonObject(R"({"id":1,"email":"e","billing_status":"b","active":1,"name":"n","phone":"p"})"));
    RemoteNotaryOption other = one;
    other.name = other.phone = other.state = other.county = u"x"_s;
    other.commissionNumber = other.commissionExpirationDate = u"x"_s;
    other.userId = 9;
    other.raw = JSONObject();
    EXPECT_EQ(one, other);

    other = one;
    other.id = 2;
    EXPECT_NE(one, other);
    other = one;
    other.email = u"x"_s;
    EXPECT_NE(one, other);
    other = one;
    other.billingStatus = u"x"_s;
    EXPECT_NE(one, other);
    other = one;
    other.active = false;
    EXPECT_NE(one, other);
}

} // namespace
