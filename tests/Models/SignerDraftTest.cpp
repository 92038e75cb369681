#include "SignerDraft.h"

#include "Generators.h"
#include "Rows.h"

#include <rapidcheck/gtest.h>

using namespace Qt::StringLiterals;

namespace {

SignerDraft sample()
{
    SignerDraft signer;
    signer.id = QUuid::fromString(u"6f1f2a52-8c0e-4d3a-9b1e-0a2b3c4d5e6f"_s);
    signer.name = u"Ada Alder"_s;
    signer.email = u"ada@example.com"_s;
    signer.phone = u"(555) 010-0199"_s;
    signer.idType = u"Passport"_s;
    signer.idExpirationDate = QDateTime(QDate(2030, 2, 28), QTime(23, 59, 58, 7), Qt::UTC);
    return signer;
}

QJsonObject sampleObject()
{
    return QJsonDocument::fromJson(sample().encoded()).object();
}

TEST(SignerDraft, StartsEmptyWithAFreshIdAndTheCurrentMoment)
{
    const QDateTime before = QDateTime::currentDateTimeUtc();
    const SignerDraft one;
    const SignerDraft two;
    EXPECT_FALSE(one.id.isNull());
    EXPECT_NE(one.id, two.id);
    EXPECT_EQ(one.name + one.email + one.phone + one.idType, QString());
    EXPECT_GE(one.idExpirationDate, before);
    EXPECT_LE(one.idExpirationDate, QDateTime::currentDateTimeUtc());
}

TEST(SignerDraft, IsEncodedUnderExactlySixKeys)
{
    EXPECT_EQ(sampleObject(),
        (QJsonObject{{u"id"_s, u"6f1f2a52-8c0e-4d3a-9b1e-0a2b3c4d5e6f"_s}, {u"name"_s, u"Ada Alder"_s},
            {u"email"_s, u"ada@example.com"_s}, {u"phone"_s, u"(555) 010-0199"_s},
            {u"idType"_s, u"Passport"_s}, {u"idExpirationDate"_s, u"2030-02-28T23:59:58.007Z"_s}}));
}

TEST(SignerDraft, EncodesTheMomentWhateverItsZone)
{
    SignerDraft signer = sample();
    signer.idExpirationDate = signer.idExpirationDate.toOffsetFromUtc(-5 * 3600);
    EXPECT_EQ(signer.encoded(), sample().encoded());
}

TEST(SignerDraft, DiffersWhenAnyFieldDiffers)
{
    for (const QString& key : sampleObject().keys()) {
        QJsonObject changed = sampleObject();
        QString value = changed.value(key).toString();
        value.replace(u'2', u'1');
        if (value == changed.value(key).toString())
            value += u'x';
        changed.insert(key, value);
        const auto other = SignerDraft::decode(QJsonDocument(changed).toJson());
        ASSERT_TRUE(other) << key.toStdString();
        EXPECT_NE(*other, sample()) << key.toStdString();
    }
}

TEST(SignerDraft, NeedsEveryKeyWithAText)
{
    for (const QString& key : sampleObject().keys()) {
        QJsonObject object = sampleObject();
        object.remove(key);
        EXPECT_FALSE(SignerDraft::decode(QJsonDocument(object).toJson())) << key.toStdString();
        for (const QJsonValue& wrong :
            {QJsonValue(QJsonValue::Null), QJsonValue(1), QJsonValue(true), QJsonValue(QJsonArray())}) {
            object.insert(key, wrong);
            EXPECT_FALSE(SignerDraft::decode(QJsonDocument(object).toJson())) << key.toStdString();
        }
    }
}

struct TextRow : Named
{
    QString key;
    QString text;
};

class MalformedSigner : public testing::TestWithParam<TextRow>
{ };

TEST_P(MalformedSigner, IsNone)
{
    QJsonObject object = sampleObject();
    object.insert(GetParam().key, GetParam().text);
    EXPECT_EQ(SignerDraft::decode(QJsonDocument(object).toJson()), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(Texts, MalformedSigner,
    testing::Values(TextRow{{"EmptyId"}, u"id"_s, {}}, TextRow{{"WordId"}, u"id"_s, u"one"_s},
        TextRow{{"CutId"}, u"id"_s, u"6f1f2a52-8c0e-4d3a-9b1e"_s},
        TextRow{{"NullId"}, u"id"_s, u"00000000-0000-0000-0000-000000000000"_s},
        TextRow{{"EmptyDate"}, u"idExpirationDate"_s, {}},
        TextRow{{"WordDate"}, u"idExpirationDate"_s, u"tomorrow"_s},
        TextRow{{"NoSuchDay"}, u"idExpirationDate"_s, u"2030-02-30T00:00:00.000Z"_s}),
    RowName());

TEST(SignerDraft, IsNoListNorText)
{
    EXPECT_FALSE(SignerDraft::decode(""));
    EXPECT_FALSE(SignerDraft::decode("[]"));
    EXPECT_FALSE(SignerDraft::decode("{}"));
}

RC_GTEST_PROP(SignerDraftProperty, ReadsBackWhatItHasWritten, ())
{
    SignerDraft signer;
    signer.name = *Generate::text();
    signer.email = *Generate::text();
    signer.phone = *Generate::text();
    signer.idType = *Generate::text();
    constexpr qint64 year10000 = 253'402'300'800'000;
    signer.idExpirationDate
        = QDateTime::fromMSecsSinceEpoch(*rc::gen::inRange<qint64>(0, year10000), Qt::UTC);
    RC_ASSERT(SignerDraft::decode(signer.encoded()) == signer);
}

} // namespace
