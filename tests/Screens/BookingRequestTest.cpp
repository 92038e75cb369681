#include "BookingTest.h"

#include "LocalZone.h"

#include <QJsonArray>

using namespace Qt::StringLiterals;

namespace {

/// The whole body that the bridge gets is compared: a key too many is as wrong as one too few.
class BookingRequestTest : public BookingTest
{
protected:
    BookingRequestTest() { fillIn(); }

    QJsonObject sentBody()
    {
        submit();
        EXPECT_EQ(requestCount(), 1);
        EXPECT_EQ(line(0), u"POST /remote-notary/sessions"_s);
        EXPECT_EQ(header(0, "Authorization"), "Bearer " + auth.user.value()->idToken.toUtf8());
        EXPECT_EQ(body(0), model->requestBody());
        return body(0);
    }

    /// What fillIn() typed, as the bridge gets it from a client.
    static QJsonObject clientBody()
    {
        return object(R"({
            "contact_name": "Ada Client",
            "contact_email": "ada@example.com",
            "contact_phone": "555 0100",
            "appointment_asap": false,
            "document_retrieval_option": "no_rush",
            "document_type": "Power of Attorney",
            "notary_act_unknown": false,
            "remote_signing_details": "Sign the deed",
            "requires_witness": false,
            "needs_apostille": false,
            "notes": "Ring twice",
            "signer_count": 1,
            "timezone": "America/New_York",
            "booking_source": "macos_desktop",
            "preferred_date": "2025-06-03",
            "preferred_time": "2:05 PM",
            "notary_act_count": 3,
            "signer_name_1": "Grace Signer",
            "signer_email_1": "grace@example.com",
            "signer_phone_1": "555 0101",
            "signer_id_type_1": "Passport",
            "signer_id_expiration_1": "2029-12-31",
            "signer_names": ["Grace Signer"],
            "signer_emails": ["grace@example.com"],
            "signer_phones": ["555 0101"],
            "signer_id_types": ["Passport"],
            "signer_id_expirations": ["2029-12-31"]
        })");
    }
};

TEST_F(BookingRequestTest, OfAClient)
{
    EXPECT_EQ(sentBody(), clientBody());
}

TEST_F(BookingRequestTest, OfABusinessNamesItsClient)
{
    replaceUser(account(u"Agency"_s, {AppRole::business}), AppRole::business);
    QJsonObject want = clientBody();
    want[u"scheduled_by_business"_s] = true;
    want[u"client_name"_s] = u"Ada Client"_s;
    want[u"client_email"_s] = u"ada@example.com"_s;
    want[u"client_phone"_s] = u"555 0100"_s;
    EXPECT_EQ(sentBody(), want);
}

TEST_F(BookingRequestTest, OfABusinessActingAsClientIsAClients)
{
    replaceUser(account(u"Agency"_s, {AppRole::business}), AppRole::client);
    EXPECT_EQ(sentBody(), clientBody());
}

TEST_F(BookingRequestTest, AsSoonAsPossibleHasNoTime)
{
    model->asap = true;
    QJsonObject want = clientBody();
    want[u"appointment_asap"_s] = true;
    want.remove(u"preferred_date"_s);
    want.remove(u"preferred_time"_s);
    EXPECT_EQ(sentBody(), want);
}

TEST_F(BookingRequestTest, AnUnknownCountIsLeftOut)
{
    model->actUnknown = true;
    QJsonObject want = clientBody();
    want[u"notary_act_unknown"_s] = true;
    want.remove(u"notary_act_count"_s);
    EXPECT_EQ(sentBody(), want);
}

TEST_F(BookingRequestTest, CarriesEveryChoice)
{
    model->documentRetrievalOption = u"priority"_s;
    model->witnessRequired = true;
    model->apostilleNeeded = true;
    model->documentType = u" Other "_s;
    model->contactPhone = u"  "_s;
    model->notes = QString();
    QJsonObject want = clientBody();
    want[u"document_retrieval_option"_s] = u"priority"_s;
    want[u"requires_witness"_s] = true;
    want[u"needs_apostille"_s] = true;
    want[u"document_type"_s] = u"Other"_s;
    want[u"contact_phone"_s] = u""_s;
    want[u"notes"_s] = u""_s;
    EXPECT_EQ(sentBody(), want);
}

TEST_F(BookingRequestTest, NumbersTenSigners)
{
    QJsonObject want = clientBody();
    want[u"signer_count"_s] = 10;
    QJsonArray names{u"Grace Signer"_s}, emails{u"grace@example.com"_s}, phones{u"555 0101"_s},
        types{u"Passport"_s}, expirations{u"2029-12-31"_s};
    for (int i = 2; i <= 10; ++i) {
        const QString number = QString::number(i);
        model->addSigner();
        model->editSigner(i - 1, [&number, i](SignerDraft& signer) {
            signer.name = u" Signer "_s + number + u' ';
            signer.email = number + u"@example.com "_s;
            signer.phone = u" 555"_s + number;
            signer.idType = u" State ID"_s;
            // Noon by UTC is the same day in New York.
            signer.idExpirationDate = QDateTime(QDate(2030, i, 15), QTime(12, 0), Qt::UTC);
        });
        const QString name = u"Signer "_s + number;
        const QString email = number + u"@example.com"_s;
        const QString phone = u"555"_s + number;
        const QString type = u"State ID"_s;
        const QString expiration = u"2030-%1-15"_s.arg(i, 2, 10, QChar(u'0'));
        want[u"signer_name_"_s + number] = name;
        want[u"signer_email_"_s + number] = email;
        want[u"signer_phone_"_s + number] = phone;
        want[u"signer_id_type_"_s + number] = type;
        want[u"signer_id_expiration_"_s + number] = expiration;
        names.append(name);
        emails.append(email);
        phones.append(phone);
        types.append(type);
        expirations.append(expiration);
    }
    want[u"signer_names"_s] = names;
    want[u"signer_emails"_s] = emails;
    want[u"signer_phones"_s] = phones;
    want[u"signer_id_types"_s] = types;
    want[u"signer_id_expirations"_s] = expirations;
    EXPECT_EQ(sentBody(), want);
}

TEST_F(BookingRequestTest, TellsNewYorkTimeFromAnywhere)
{
    const LocalZone here("Asia/Tokyo");
    // Half past eight in the morning of Tokyo is the evening before in New York.
    model->scheduledDate = QDateTime(QDate(2025, 11, 4), QTime(8, 30));
    QJsonObject want = clientBody();
    want[u"preferred_date"_s] = u"2025-11-03"_s;
    want[u"preferred_time"_s] = u"6:30 PM"_s;
    EXPECT_EQ(sentBody(), want);
    EXPECT_EQ(model->newYorkTimeText(), u"Mon, Nov 3, 6:30 PM EST in New York"_s);
}

} // namespace
