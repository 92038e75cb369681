#include "BookingTest.h"

#include "AppError.h"
#include "Cases.h"

using namespace Qt::StringLiterals;

namespace {

class BookingFormTest : public BookingTest
{
protected:
    /// The sentence of the first fault; empty when there is none.
    QString fault() const
    {
        try {
            model->validate();
            return {};
        } catch (const AppError& error) {
            return error.message();
        }
    }
};

void expectDefaults(const BookRemoteNotaryModel& model, const QDateTime& now)
{
    EXPECT_EQ(model.contactName.value(), QString());
    EXPECT_EQ(model.contactEmail.value(), QString());
    EXPECT_EQ(model.contactPhone.value(), QString());
    EXPECT_FALSE(model.asap.value());
    EXPECT_EQ(model.scheduledDate.value(), now);
    EXPECT_EQ(model.documentRetrievalOption.value(), u"no_rush"_s);
    EXPECT_EQ(model.documentType.value(), u"Acknowledgment"_s);
    EXPECT_EQ(model.actCount.value(), 1);
    EXPECT_FALSE(model.actUnknown.value());
    EXPECT_EQ(model.details.value(), QString());
    EXPECT_FALSE(model.witnessRequired.value());
    EXPECT_FALSE(model.apostilleNeeded.value());
    EXPECT_EQ(model.notes.value(), QString());
    EXPECT_FALSE(model.isSubmitting.value());
    EXPECT_FALSE(model.alert.value().has_value());
    EXPECT_FALSE(model.successMessage.value().has_value());
    EXPECT_TRUE(model.pendingUploads().isEmpty());
    EXPECT_FALSE(model.isDropTarget.value());
    EXPECT_EQ(model.uploadProgressText.value(), QString());
    EXPECT_EQ(model.uploadProgress.value(), 0);
    ASSERT_EQ(model.signers().size(), 1);
    SignerDraft fresh;
    fresh.id = model.signers().constFirst().id;
    fresh.idExpirationDate = now;
    EXPECT_EQ(model.signers().constFirst(), fresh);
}

TEST_F(BookingFormTest, StartsWithTheDefaults)
{
    expectDefaults(*model, now);
}

TEST_F(BookingFormTest, ResetBringsBackTheDefaults)
{
    fillIn();
    const QUuid before = model->signers().constFirst().id;
    model->asap = true;
    model->documentRetrievalOption = u"priority"_s;
    model->actUnknown = true;
    model->witnessRequired = true;
    model->apostilleNeeded = true;
    model->alert = AlertMessage{};
    model->successMessage = u"done"_s;
    model->isDropTarget = true;
    model->uploadProgressText = u"Upload complete."_s;
    model->uploadProgress = 1;
    model->addSigner();
    attach(u"deed.pdf"_s);
    now = now.addSecs(3600);
    model->resetForm();
    expectDefaults(*model, now);
    EXPECT_NE(model->signers().constFirst().id, before) << "a fresh signer";
}

TEST_F(BookingFormTest, OffersItsLists)
{
    EXPECT_EQ(BookRemoteNotaryModel::documentTypes(),
        (QList<QString>{u"Acknowledgment"_s, u"Jurat / Affidavit"_s, u"Oath / Affirmation"_s,
            u"Power of Attorney"_s, u"Real Estate Document"_s, u"Loan / Closing Document"_s,
            u"Settlement / Litigation Document"_s, u"Translation Affidavit"_s, u"Passport / Travel Consent"_s,
            u"Other"_s}));
    EXPECT_EQ(BookRemoteNotaryModel::idTypeOptions(),
        (QList<QString>{u"NY Driver License"_s, u"Out-of-State Driver License"_s, u"Passport"_s,
            u"State ID"_s, u"Other Government ID"_s}));
    QList<QString> billing;
    for (const BookRemoteNotaryModel::BillingOption& option : BookRemoteNotaryModel::billingOptions())
        billing += option.value + u'|' + option.label + u'|' + option.description;
    EXPECT_EQ(billing,
        (QList<QString>{u"no_rush|No-Rush Document Retrieval|No-Rush Document Retrieval: $15+ for each "
                        u"notarial act. Document "
                        "retrieval may be delayed."_s,
            u"priority|Priority Document Retrieval (Rush)|Priority Document Retrieval: $25 initial signature "
            u"+ $8 "
            "each additional signature."_s}));
}

TEST_F(BookingFormTest, SpeaksOfClientsToABusiness)
{
    EXPECT_EQ(model->contactHeading(), u"Contact Information"_s);
    EXPECT_EQ(model->heroSubtitle(),
        u"Request a remote online notarization with signer details, billing option, and preferred time."_s);
    replaceUser(account(u"Agency"_s, {AppRole::business}), AppRole::business);
    EXPECT_EQ(model->contactHeading(), u"Client Information"_s);
    EXPECT_EQ(model->heroSubtitle(),
        u"Schedule a remote notarization for a client with signer details, billing option, and preferred time."_s);
    auth.switchRole(AppRole::client);
    EXPECT_EQ(model->contactHeading(), u"Contact Information"_s);
}

struct Fee
{
    const char* name;
    QString option;
    int count;
    double fee;
    QString text;
    bool isRush;
};

void PrintTo(const Fee& fee, std::ostream* out)
{
    *out << fee.name;
}

class BookingFee : public BookingFormTest, public testing::WithParamInterface<Fee>
{ };

TEST_P(BookingFee, IsEstimatedFromOptionAndCount)
{
    model->documentRetrievalOption = GetParam().option;
    model->actCount = GetParam().count;
    for (const bool unknown : {false, true}) {
        model->actUnknown = unknown;
        EXPECT_DOUBLE_EQ(model->estimatedRetrievalFee(), GetParam().fee);
        EXPECT_EQ(model->feeText(), GetParam().text);
        EXPECT_EQ(model->feeCaption(),
            GetParam().isRush ? u"Rush estimate based on the number of signatures."_s
                              : u"No-rush estimate based on the number of signatures."_s);
    }
}

INSTANTIATE_TEST_SUITE_P(Estimates, BookingFee,
    testing::Values(Fee{"RushOne", u"priority"_s, 1, 25, u"$25.00"_s, true},
        Fee{"RushThree", u"priority"_s, 3, 41, u"$41.00"_s, true},
        Fee{"RushMost", u"priority"_s, 25, 217, u"$217.00"_s, true},
        Fee{"RushNone", u"priority"_s, 0, 25, u"$25.00"_s, true},
        Fee{"RushNegative", u"priority"_s, -3, 25, u"$25.00"_s, true},
        Fee{"NoRushOne", u"no_rush"_s, 1, 15, u"$15.00"_s, false},
        Fee{"NoRushThree", u"no_rush"_s, 3, 45, u"$45.00"_s, false},
        Fee{"NoRushMost", u"no_rush"_s, 25, 375, u"$375.00"_s, false},
        Fee{"NoRushNone", u"no_rush"_s, 0, 15, u"$15.00"_s, false},
        Fee{"UnknownOption", u"overnight"_s, 2, 30, u"$30.00"_s, false},
        Fee{"OtherLetterCase", u"Priority"_s, 2, 30, u"$30.00"_s, false},
        Fee{"NoOption", {}, 2, 30, u"$30.00"_s, false}),
    ByName());

TEST_F(BookingFormTest, SignatureCountIsUnknownOnlyInName)
{
    model->actCount = 7;
    EXPECT_EQ(model->signatureCountText(), u"Number of Signatures: 7"_s);
    model->actUnknown = true;
    EXPECT_EQ(model->signatureCountText(), u"Number of Signatures: Unknown"_s);
    EXPECT_EQ(model->actCount.value(), 7);
    EXPECT_EQ(BookRemoteNotaryModel::leastSignatures, 1);
    EXPECT_EQ(BookRemoteNotaryModel::mostSignatures, 25);
}

TEST_F(BookingFormTest, HoldsOneToTenSigners)
{
    int changes = 0;
    QObject::connect(
        model.get(), &BookRemoteNotaryModel::signerCountChanged, model.get(), [&] { ++changes; });
    model->removeSigner();
    EXPECT_EQ(model->signers().size(), 1);
    EXPECT_EQ(changes, 0);
    for (int count = 2; count <= 10; ++count) {
        model->addSigner();
        EXPECT_EQ(model->signers().size(), count);
        EXPECT_EQ(model->signers().constLast().idExpirationDate, now);
    }
    EXPECT_EQ(changes, 9);
    model->addSigner();
    EXPECT_EQ(model->signers().size(), 10);
    EXPECT_EQ(changes, 9);
    QSet<QUuid> ids;
    for (const SignerDraft& signer : model->signers())
        ids += signer.id;
    EXPECT_EQ(ids.size(), 10);
}

TEST_F(BookingFormTest, RemovesTheLastSigner)
{
    model->addSigner();
    model->addSigner();
    const QList<SignerDraft> before = model->signers();
    model->removeSigner();
    EXPECT_EQ(model->signers(), before.first(2));
}

struct Check
{
    const char* name;
    void (*spoil)(BookRemoteNotaryModel&);
    QString message; ///< empty: passes
};

void PrintTo(const Check& check, std::ostream* out)
{
    *out << check.name;
}

class BookingCheck : public BookingFormTest, public testing::WithParamInterface<Check>
{ };

TEST_P(BookingCheck, FindsTheFirstFault)
{
    fillIn();
    model->addSigner();
    model->editSigner(1, [](SignerDraft& signer) {
        signer.name = u"Second"_s;
        signer.idType = u"State ID"_s;
    });
    GetParam().spoil(*model);
    EXPECT_EQ(fault(), GetParam().message);
}

using Form = BookRemoteNotaryModel;
const QString noName = u"Enter the contact name."_s;
const QString badEmail = u"Enter a valid contact email."_s;
const QString past = u"Choose a future date and time."_s;
const QString noDetails = u"Describe what needs to be notarized."_s;
const QString noSignerName = u"Enter each signer name."_s;
const QString noIdType = u"Select each signer ID type."_s;

void setName(Form& form, qsizetype signer, const QString& name)
{
    form.editSigner(signer, [&name](SignerDraft& draft) { draft.name = name; });
}

void setIdType(Form& form, qsizetype signer, const QString& idType)
{
    form.editSigner(signer, [&idType](SignerDraft& draft) { draft.idType = idType; });
}

void setAge(Form& form, qint64 seconds)
{
    form.scheduledDate = form.context().now().addSecs(-seconds);
}

INSTANTIATE_TEST_SUITE_P(Fields, BookingCheck,
    testing::Values(Check{"Complete", [](Form&) {}, {}}, //
        Check{"BlankName", [](Form& f) { f.contactName = u" \n "_s; }, noName},
        Check{"BadEmail", [](Form& f) { f.contactEmail = u"ada@example"_s; }, badEmail},
        Check{"EmailIsNotTrimmed", [](Form& f) { f.contactEmail = u" a@b.co"_s; }, {}},
        Check{"HalfAMinutePast", [](Form& f) { setAge(f, 30); }, {}},
        Check{"OneMinutePast", [](Form& f) { setAge(f, 60); }, {}},
        Check{"OverAMinutePast", [](Form& f) { setAge(f, 61); }, past},
        Check{"AsapHasNoTime",
            [](Form& f) {
                f.asap = true;
                setAge(f, 100'000);
            },
            {}},
        Check{"BlankDetails", [](Form& f) { f.details = u"\t"_s; }, noDetails},
        Check{"BlankSignerName", [](Form& f) { setName(f, 1, u"  "_s); }, noSignerName},
        Check{"NoIdType", [](Form& f) { setIdType(f, 1, {}); }, noIdType},
        Check{"BlankIdType", [](Form& f) { setIdType(f, 0, u" "_s); }, noIdType},
        Check{"SignerBySigner",
            [](Form& f) {
                setIdType(f, 0, {});
                setName(f, 1, {});
            },
            noIdType},
        Check{"FirstSignersNameBeforeSecondsType",
            [](Form& f) {
                setName(f, 0, {});
                setIdType(f, 1, {});
            },
            noSignerName},
        Check{"OptionalFieldsStayOptional",
            [](Form& f) {
                f.contactPhone = QString();
                f.documentType = QString();
                f.notes = QString();
                f.editSigner(0, [](SignerDraft& draft) {
                    draft.email = u"nonsense"_s;
                    draft.phone = QString();
                    draft.idExpirationDate = QDateTime(QDate(1990, 1, 1), QTime(0, 0), Qt::UTC);
                });
            },
            {}}),
    ByName());

/// Everything is wrong at first; each repair brings up the next fault in the fixed order.
TEST_F(BookingFormTest, ChecksInAFixedOrder)
{
    setAge(*model, 3600);
    EXPECT_EQ(fault(), noName);
    model->contactName = u"Ada"_s;
    EXPECT_EQ(fault(), badEmail);
    model->contactEmail = u"ada@example.com"_s;
    EXPECT_EQ(fault(), past);
    model->asap = true;
    EXPECT_EQ(fault(), noDetails);
    model->details = u"A deed"_s;
    EXPECT_EQ(fault(), noSignerName);
    setName(*model, 0, u"Grace"_s);
    EXPECT_EQ(fault(), noIdType);
    setIdType(*model, 0, u"Passport"_s);
    EXPECT_EQ(fault(), QString());
}

TEST_F(BookingFormTest, AFaultIsShownAndNothingIsSent)
{
    fillIn();
    model->details = QString();
    submit();
    EXPECT_EQ(alertOf(*model), (QList<QString>{u"Missing Information"_s, noDetails}));
    EXPECT_EQ(requestCount(), 0);
    EXPECT_FALSE(model->isSubmitting.value());
    EXPECT_EQ(model->contactName.value(), u" Ada Client \n"_s);
}

TEST_F(BookingFormTest, ViewingSessionsSelectsNone)
{
    router.selectedSessionId = 42;
    model->viewSessions();
    EXPECT_EQ(router.selectedSection.value(), AppSection::sessions);
    EXPECT_FALSE(router.selectedSessionId.value().has_value());
}

} // namespace
