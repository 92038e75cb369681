#include "AdminRecordItem.h"
#include "RemoteDocumentUpload.h"
#include "RemoteNotaryOption.h"
#include "Rows.h"
#include "SessionMessage.h"
#include "SessionSummary.h"

#include <QStringList>

#include <functional>

using namespace Qt::StringLiterals;

// The bridge may send any field as any type, or not at all. Every derived text must then show what can be
// shown of it, and its stated default otherwise; never an empty place, never a failure.

namespace {

/// A derived text, the keys from which it is taken, the winning one first, and its default.
struct Derivation : Named
{
    std::function<QString(const JSONObject&)> derive;
    QStringList keys;
    QString fallback;
};

/// One form in which a field may arrive, and the text to be shown; nothing where the field counts as absent.
struct Form : Named
{
    QByteArray json;
    std::optional<QString> text;
};

const Form forms[] = {
    {{"Text"}, R"("Alder")", u"Alder"_s},
    {{"Digits"}, R"("42")", u"42"_s},
    {{"Markup"}, R"("<b>a</b> < b")", u"<b>a</b> < b"_s},
    {{"Integer"}, "42", u"42"_s},
    {{"Zero"}, "0", u"0"_s},
    {{"Fraction"}, "4.5", u"4.5"_s},
    {{"BeyondIntegers"}, "1e300", u"1e+300"_s},
    {{"True"}, "true", u"true"_s},
    {{"False"}, "false", u"false"_s},
    {{"List"}, R"([1, "a"])", uR"([1,"a"])"_s},
    {{"EmptyList"}, "[]", u"[]"_s},
    {{"Object"}, R"({"a": 1})", uR"({"a":1})"_s},
    {{"Null"}, "null", {}},
    {{"NullWord"}, R"("null")", {}},
    {{"NullInCapitals"}, R"(" NULL ")", {}},
    {{"NilWord"}, R"("nil")", {}},
    {{"AngledNull"}, R"("<null>")", {}},
    {{"BracketedNull"}, "\"(null)\"", {}},
    {{"Empty"}, R"("")", {}},
    {{"Blank"}, R"(" \t\n")", {}},
};

class LooseField : public testing::TestWithParam<Derivation>
{
protected:
    static QByteArray member(const QString& key, const QByteArray& json)
    {
        return '"' + key.toUtf8() + "\":" + json;
    }
};

TEST_P(LooseField, ShowsItsTextOrTheDefaultInEveryForm)
{
    for (const QString& key : GetParam().keys) {
        for (const Form& form : forms) {
            const JSONObject raw = jsonObject("{" + member(key, form.json) + "}");
            EXPECT_EQ(GetParam().derive(raw), form.text.value_or(GetParam().fallback))
                << key.toStdString() << " as " << form;
        }
    }
}

TEST_P(LooseField, GivesWayToTheNextKeyOnlyWhenAbsent)
{
    const QStringList& keys = GetParam().keys;
    for (qsizetype index = 0; index + 1 < keys.size(); ++index) {
        const QByteArray next = member(keys[index + 1], R"("next")");
        for (const Form& form : forms) {
            const JSONObject raw = jsonObject("{" + member(keys[index], form.json) + "," + next + "}");
            EXPECT_EQ(GetParam().derive(raw), form.text.value_or(u"next"_s))
                << keys[index].toStdString() << " as " << form;
        }
    }
}

TEST_P(LooseField, ShowsTheDefaultWhenMissing)
{
    EXPECT_EQ(GetParam().derive(JSONObject()), GetParam().fallback);
    EXPECT_EQ(GetParam().derive(jsonObject(R"({"unrelated":"x"})")), GetParam().fallback);
}

QString joined(const QList<QString>& names)
{
    return names.join(u'|');
}

const Derivation sessionDerivations[] = {
    {{"Status"},
        [](const JSONObject& raw) {
            return SessionSummary{1, raw}.status();
        },
        {u"status"_s}, u"requested"_s},
    {{"Reference"},
        [](const JSONObject& raw) {
            return SessionSummary{1, raw}.reference();
        },
        {u"reference_id"_s, u"id"_s}, {}},
    {{"Date"},
        [](const JSONObject& raw) {
            return SessionSummary{1, raw}.displayDateTime();
        },
        {u"scheduled_date"_s, u"preferred_date"_s}, u"Date pending"_s},
    {{"Time"},
        [](const JSONObject& raw) {
            return SessionSummary{1, raw}.displayDateTime();
        },
        {u"scheduled_time"_s, u"preferred_time"_s}, u"Date pending"_s},
    {{"Created"},
        [](const JSONObject& raw) {
            return SessionSummary{1, raw}.displayDateTime();
        },
        {u"created_at"_s}, u"Date pending"_s},
    {{"SignerName"},
        [](const JSONObject& raw) {
            return joined(SessionSummary{1, raw}.signerNames());
        },
        {u"signer_name"_s, u"contact_name"_s, u"user_full_name"_s, u"client_name"_s}, {}},
};

const Derivation recordDerivations[] = {
    {{"RecordType"},
        [](const JSONObject& raw) {
            return AdminRecordItem{1, raw}.recordType();
        },
        {u"record_type"_s, u"type"_s}, u"remote"_s},
    {{"Status"},
        [](const JSONObject& raw) {
            return AdminRecordItem{1, raw}.status();
        },
        {u"status"_s}, u"requested"_s},
    {{"Source"},
        [](const JSONObject& raw) {
            return AdminRecordItem{1, raw}.source();
        },
        {u"source"_s}, u"remote_notary_sessions"_s},
    {{"Date"},
        [](const JSONObject& raw) {
            return AdminRecordItem{1, raw}.displayDateTime();
        },
        {u"scheduled_date"_s, u"preferred_date"_s}, u"Date pending"_s},
    {{"Time"},
        [](const JSONObject& raw) {
            return AdminRecordItem{1, raw}.displayDateTime();
        },
        {u"scheduled_time"_s, u"preferred_time"_s}, u"Date pending"_s},
    {{"Created"},
        [](const JSONObject& raw) {
            return AdminRecordItem{1, raw}.displayDateTime();
        },
        {u"created_at"_s, u"ny_datetime"_s}, u"Date pending"_s},
    {{"SignerName"},
        [](const JSONObject& raw) {
            return joined(AdminRecordItem{1, raw}.signerNames());
        },
        {u"signer_name"_s, u"contact_name"_s, u"client_name"_s, u"name"_s}, {}},
};

const Derivation documentDerivations[] = {
    {{"FileName"},
        [](const JSONObject& raw) {
            return RemoteDocumentUpload{1, raw}.fileName();
        },
        {u"original_filename"_s, u"file_name"_s}, u"Document"_s},
    {{"DisplayName"},
        [](const JSONObject& raw) {
            return RemoteDocumentUpload{1, raw}.displayName();
        },
        {u"document_name"_s, u"label"_s}, u"Session document"_s},
    {{"DetailFileName"},
        [](const JSONObject& raw) {
            return RemoteDocumentUpload{1, raw}.displayDetail();
        },
        {u"original_filename"_s, u"file_name"_s}, u"Document"_s},
};

const Derivation messageDerivations[] = {
    {{"SenderType"}, [](const JSONObject& raw) { return SessionMessage::fromRaw(raw).senderType; },
        {u"sender_type"_s, u"role"_s}, u"user"_s},
    {{"SenderName"}, [](const JSONObject& raw) { return SessionMessage::fromRaw(raw).senderName; },
        {u"sender_name"_s, u"name"_s}, u"Quorvel"_s},
    {{"SenderEmail"}, [](const JSONObject& raw) { return SessionMessage::fromRaw(raw).senderEmail; },
        {u"sender_email"_s, u"email"_s}, {}},
    {{"Message"}, [](const JSONObject& raw) { return SessionMessage::fromRaw(raw).message; }, {u"message"_s},
        {}},
    {{"CreatedAt"}, [](const JSONObject& raw) { return SessionMessage::fromRaw(raw).createdAt; },
        {u"created_at"_s}, {}},
};

const Derivation notaryDerivations[] = {
    {{"Name"}, [](const JSONObject& raw) { return RemoteNotaryOption::fromRaw(raw).name; },
        {u"name"_s, u"full_name"_s}, u"Remote Notary"_s},
    {{"Email"}, [](const JSONObject& raw) { return RemoteNotaryOption::fromRaw(raw).email; }, {u"email"_s},
        {}},
    {{"Phone"}, [](const JSONObject& raw) { return RemoteNotaryOption::fromRaw(raw).phone; }, {u"phone"_s},
        {}},
    {{"State"}, [](const JSONObject& raw) { return RemoteNotaryOption::fromRaw(raw).state; },
        {u"notarial_state"_s, u"state"_s}, {}},
    {{"County"}, [](const JSONObject& raw) { return RemoteNotaryOption::fromRaw(raw).county; }, {u"county"_s},
        {}},
    {{"CommissionNumber"},
        [](const JSONObject& raw) { return RemoteNotaryOption::fromRaw(raw).commissionNumber; },
        {u"commission_number"_s, u"notary_commission_number"_s}, {}},
    {{"CommissionExpirationDate"},
        [](const JSONObject& raw) { return RemoteNotaryOption::fromRaw(raw).commissionExpirationDate; },
        {u"commission_expiration_date"_s, u"commission_expires_at"_s}, {}},
    {{"BillingStatus"}, [](const JSONObject& raw) { return RemoteNotaryOption::fromRaw(raw).billingStatus; },
        {u"billing_status"_s, u"status"_s}, u"active"_s},
};

using testing::ValuesIn;
INSTANTIATE_TEST_SUITE_P(SessionSummary, LooseField, ValuesIn(sessionDerivations), RowName());
INSTANTIATE_TEST_SUITE_P(AdminRecordItem, LooseField, ValuesIn(recordDerivations), RowName());
INSTANTIATE_TEST_SUITE_P(RemoteDocument, LooseField, ValuesIn(documentDerivations), RowName());
INSTANTIATE_TEST_SUITE_P(SessionMessage, LooseField, ValuesIn(messageDerivations), RowName());
INSTANTIATE_TEST_SUITE_P(RemoteNotary, LooseField, ValuesIn(notaryDerivations), RowName());

} // namespace
