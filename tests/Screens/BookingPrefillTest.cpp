#include "BookingTest.h"

#include "Cases.h"

using namespace Qt::StringLiterals;

namespace {

class BookingPrefillTest : public BookingTest
{
protected:
    void prefill()
    {
        launch(model->prefill());
        settle();
    }

    /// Name, e-mail and phone of the contact, then those of the first signer.
    QList<QString> fields() const
    {
        const SignerDraft& signer = model->signers().constFirst();
        return {model->contactName.value(), model->contactEmail.value(), model->contactPhone.value(),
            signer.name, signer.email, signer.phone};
    }
};

const QString name = u"Jordan Ellis"_s;

TEST_F(BookingPrefillTest, FillsInTheSignedInUserBeforeTheAnswer)
{
    const QString email = auth.user.value()->email;
    QList<qsizetype> changed;
    QObject::connect(model.get(), &BookRemoteNotaryModel::signerChanged, model.get(),
        [&](qsizetype index) { changed += index; });
    prefill();
    EXPECT_EQ(fields(), (QList<QString>{name, email, {}, name, email, {}}));
    ASSERT_EQ(requestCount(), 1);
    EXPECT_EQ(line(0), u"GET /profile"_s);
    EXPECT_EQ(header(0, "Authorization"), "Bearer " + auth.user.value()->idToken.toUtf8());
    answer(0, R"({"user": {"full_name": "Other", "email": "other@example.com", "phone": "555 0100"}})");
    EXPECT_EQ(fields(), (QList<QString>{name, email, u"555 0100"_s, name, email, u"555 0100"_s}));
    EXPECT_EQ(changed, (QList<qsizetype>{0, 0}));
    EXPECT_TRUE(alertOf(*model).isEmpty());
}

struct Profile
{
    const char* name;
    QByteArray answer;
    QString filledName;
    QString filledEmail;
    QString filledPhone;
};

void PrintTo(const Profile& profile, std::ostream* out)
{
    *out << profile.name;
}

class BookingProfile : public BookingPrefillTest, public testing::WithParamInterface<Profile>
{ };

TEST_P(BookingProfile, FillsInWhatTheUserLacks)
{
    AuthUser nameless = *auth.user.value();
    nameless.displayName = std::nullopt;
    nameless.email = QString();
    replaceUser(nameless);
    prefill();
    EXPECT_EQ(fields(), QList<QString>(6));
    answer(0, GetParam().answer);
    EXPECT_EQ(fields(),
        (QList<QString>{GetParam().filledName, GetParam().filledEmail, GetParam().filledPhone,
            GetParam().filledName, GetParam().filledEmail, GetParam().filledPhone}));
}

INSTANTIATE_TEST_SUITE_P(Answers, BookingProfile,
    testing::Values(
        Profile{"InnerUser",
            R"({"full_name": "no", "user": {"full_name": "Ada", "email": "a@b.co", "phone": "1"}})", u"Ada"_s,
            u"a@b.co"_s, u"1"_s},
        Profile{"AnswerItself", R"({"full_name": "Ada", "email": "a@b.co", "phone": "1"})", u"Ada"_s,
            u"a@b.co"_s, u"1"_s},
        Profile{"UserIsNoObject", R"({"user": "Ada", "name": "Bea"})", u"Bea"_s, {}, {}},
        Profile{"NameWithoutFullName", R"({"full_name": null, "name": "Bea"})", u"Bea"_s, {}, {}},
        Profile{"FullNameWins", R"({"full_name": "Ada", "name": "Bea"})", u"Ada"_s, {}, {}},
        Profile{"PhoneAsNumber", R"({"phone": 5550100})", {}, {}, u"5550100"_s},
        Profile{"NullWords", R"({"full_name": "null", "phone": "<null>", "email": "  "})", {}, {}, {}},
        Profile{"Nothing", "{}", {}, {}, {}}),
    ByName());

TEST_F(BookingPrefillTest, AnyTypeInAnyFieldOfTheProfileIsHarmless)
{
    for (const QByteArray field : {"user", "full_name", "name", "phone", "email"}) {
        for (const QByteArray value :
            {"12", "1.5", "null", "true", "[]", "[{}]", "{}", R"({"phone": {}})", "\"\""}) {
            model->resetForm();
            prefill();
            answer(requestCount() - 1, "{\"" + field + "\": " + value + "}");
            EXPECT_EQ(fields().first(2), (QList<QString>{name, auth.user.value()->email}));
            EXPECT_TRUE(alertOf(*model).isEmpty());
        }
    }
}

TEST_F(BookingPrefillTest, KeepsWhatWasTypedMeanwhile)
{
    prefill();
    model->contactPhone = u"typed"_s;
    model->contactName = u"Typed"_s;
    model->editSigner(0, [](SignerDraft& signer) { signer.phone = u"signer's"_s; });
    answer(0, R"({"user": {"full_name": "Other", "phone": "555 0100"}})");
    EXPECT_EQ(model->contactName.value(), u"Typed"_s);
    EXPECT_EQ(model->contactPhone.value(), u"typed"_s);
    EXPECT_EQ(model->signers().constFirst().phone, u"signer's"_s);
}

TEST_F(BookingPrefillTest, AClearedFieldIsFilledAgainFromTheAnswer)
{
    prefill();
    model->contactEmail = QString();
    answer(0, "{}");
    EXPECT_EQ(model->contactEmail.value(), auth.user.value()->email)
        << "the stored one where the answer has none";
}

TEST_F(BookingPrefillTest, OtherFailuresAreSilent)
{
    prefill();
    const QList<QString> before = fields();
    answer(0, R"({"message": "Down for maintenance."})", 503);
    EXPECT_TRUE(alertOf(*model).isEmpty());
    EXPECT_TRUE(auth.isSignedIn());
    EXPECT_EQ(fields(), before);
}

TEST_F(BookingPrefillTest, ConnectionFailureIsSilent)
{
    prefill();
    fail(0);
    EXPECT_TRUE(alertOf(*model).isEmpty());
    EXPECT_TRUE(auth.isSignedIn());
}

TEST_F(BookingPrefillTest, SessionExpirySignsOutWithoutAWord)
{
    prefill();
    answer(0, "{}", 401);
    EXPECT_FALSE(auth.isSignedIn());
    EXPECT_TRUE(alertOf(*model).isEmpty());
}

TEST_F(BookingPrefillTest, RunsOnceInTheLifeOfTheForm)
{
    prefill();
    prefill();
    EXPECT_EQ(requestCount(), 1) << "not twice while it runs";
    fail(0);
    model->contactName = QString();
    prefill();
    EXPECT_EQ(requestCount(), 1) << "nor after it failed";
    EXPECT_EQ(model->contactName.value(), QString());
}

TEST_F(BookingPrefillTest, WithoutAUserItIsSpent)
{
    auth.signOut();
    prefill();
    signIn(account(u"Late"_s));
    prefill();
    EXPECT_EQ(requestCount(), 0);
    EXPECT_EQ(fields(), QList<QString>(6));
}

TEST_F(BookingPrefillTest, AFurtherBookingBeginsEmptyAndAsksForNothing)
{
    prefill();
    answer(0, R"({"phone": "1"})");
    fillIn();
    model->successMessage = u"done"_s;
    model->bookAnother();
    settle();
    EXPECT_FALSE(model->successMessage.value().has_value());
    for (const QProperty<QString>* field :
        {&model->contactName, &model->contactEmail, &model->contactPhone, &model->details})
        EXPECT_EQ(field->value(), QString());
    EXPECT_EQ(model->signers().size(), 1);
    EXPECT_EQ(model->signers().first().name, QString());
    model->contactName = u"Somebody else"_s;
    // The screen is visited again.
    prefill();
    EXPECT_EQ(requestCount(), 1);
    EXPECT_EQ(model->contactName.value(), u"Somebody else"_s);
}

TEST_F(BookingPrefillTest, ALateProfileChangesNoFurtherBooking)
{
    prefill();
    model->bookAnother();
    answer(0, R"({"phone": "old"})");
    EXPECT_EQ(model->contactPhone.value(), QString());
}

TEST_F(BookingPrefillTest, AResetFormIsNotFilledByAnEarlierPrefill)
{
    prefill();
    model->resetForm();
    answer(0, R"({"full_name": "Ada", "phone": "1"})");
    EXPECT_EQ(fields(), QList<QString>(6));
}

TEST_F(BookingPrefillTest, ALateAnswerForSomebodyElseChangesNothing)
{
    prefill();
    const QList<QString> before = fields();
    replaceUser(account(u"Second"_s));
    answer(0, R"({"phone": "1"})");
    EXPECT_EQ(fields(), before);
}

TEST_F(BookingPrefillTest, ALateExpiryForSomebodyElseSignsNobodyOut)
{
    prefill();
    replaceUser(account(u"Second"_s));
    answer(0, "{}", 401);
    ASSERT_TRUE(auth.isSignedIn());
    EXPECT_EQ(auth.displayName(), u"Second"_s);
    EXPECT_TRUE(alertOf(*model).isEmpty());
}

TEST_F(BookingPrefillTest, LivesUntilItsAnswer)
{
    const std::weak_ptr<BookRemoteNotaryModel> gone = model;
    prefill();
    model.reset();
    EXPECT_FALSE(gone.expired());
    answer(0, R"({"phone": "1"})");
    EXPECT_TRUE(gone.expired());
}

} // namespace
