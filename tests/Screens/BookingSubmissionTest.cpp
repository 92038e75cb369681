#include "BookingTest.h"

#include "Cases.h"

using namespace Qt::StringLiterals;

namespace {

class BookingSubmissionTest : public BookingTest
{
protected:
    BookingSubmissionTest() { fillIn(); }

    std::optional<QString> success() const { return model->successMessage.value(); }

    /// Starts the search for a created session's id; found() is what it comes to.
    void resolve(const QByteArray& answer, const QString& reference)
    {
        const JSONObject response(object(answer));
        launch(keepId(model->resolveCreatedSessionId(response, reference, u"token"_s)));
        settle();
    }

    std::optional<qint64> found() const { return found_.value(); }

private:
    QCoro::Task<> keepId(QCoro::Task<std::optional<qint64>> search)
    {
        const std::optional<qint64> id = co_await search;
        found_ = id;
    }

    /// Nothing until the search has ended.
    std::optional<std::optional<qint64>> found_;
};

const QString failed = u"Booking Failed"_s;

QString created(const QString& reference)
{
    return u"Remote notary request "_s + reference
        + u" was created. Our team will review and confirm the session."_s;
}

TEST_F(BookingSubmissionTest, BooksAndSaysSo)
{
    launch(model->submit());
    EXPECT_TRUE(model->isSubmitting.value());
    EXPECT_FALSE(success().has_value());
    answer(0, R"({"id": 7, "reference_id": "RN-7"})");
    EXPECT_EQ(success(), created(u"RN-7"_s));
    EXPECT_FALSE(model->isSubmitting.value());
    EXPECT_TRUE(alertOf(*model).isEmpty());
    EXPECT_EQ(requestCount(), 1);
    EXPECT_EQ(model->uploadProgressText.value(), QString());
}

TEST_F(BookingSubmissionTest, WithoutAUserItSignsOutAndStops)
{
    auth.signOut();
    defaults.setString(AuthManager::activeRoleKey, u"admin"_s);
    submit();
    EXPECT_EQ(requestCount(), 0);
    EXPECT_TRUE(alertOf(*model).isEmpty());
    EXPECT_FALSE(model->isSubmitting.value());
    EXPECT_FALSE(defaults.string(AuthManager::activeRoleKey).has_value()) << "signed out for good";
}

TEST_F(BookingSubmissionTest, FaultsAreFoundBeforeTheUserIsMissed)
{
    auth.signOut();
    model->details = QString();
    submit();
    EXPECT_EQ(alertOf(*model).value(0), u"Missing Information"_s);
}

TEST_F(BookingSubmissionTest, ASecondPressWhileOneIsUnderWaySendsNothing)
{
    submit();
    submit();
    model->details = QString();
    submit();
    EXPECT_EQ(requestCount(), 1);
    EXPECT_TRUE(alertOf(*model).isEmpty());
    answer(0, R"({"id": 7})");
    EXPECT_EQ(requestCount(), 1);
}

struct Reference
{
    const char* name;
    QByteArray answer;
    QString reference;
};

void PrintTo(const Reference& reference, std::ostream* out)
{
    *out << reference.name;
}

class BookingReference : public BookingSubmissionTest, public testing::WithParamInterface<Reference>
{ };

TEST_P(BookingReference, IsQuotedFromTheAnswer)
{
    submit();
    answer(0, GetParam().answer);
    if (requestCount() > 1)
        answer(1, "[]");
    EXPECT_EQ(success(), created(GetParam().reference));
}

INSTANTIATE_TEST_SUITE_P(Answers, BookingReference,
    testing::Values(Reference{"ReferenceWins", R"({"reference_id": "RN-1", "id": 5})", u"RN-1"_s},
        Reference{"Number", R"({"reference_id": 12})", u"12"_s},
        Reference{"IdAsText", R"({"id": 5})", u"5"_s},
        Reference{"BlankReference", R"({"reference_id": " ", "id": 5})", u"5"_s},
        Reference{"NullWord", R"({"reference_id": "null", "id": 5})", u"5"_s},
        Reference{"Neither", R"({"session_id": 5})", u"your new request"_s},
        Reference{"EmptyAnswer", "{}", u"your new request"_s},
        Reference{"NoContent", "", u"your new request"_s},
        Reference{"Wrapped", R"({"data": {"reference_id": "RN-2", "id": 2}})", u"RN-2"_s}),
    ByName());

struct Failure
{
    const char* name;
    int status;
    QByteArray answer;
    QString message;
};

void PrintTo(const Failure& failure, std::ostream* out)
{
    *out << failure.name;
}

class BookingFailure : public BookingSubmissionTest, public testing::WithParamInterface<Failure>
{ };

TEST_P(BookingFailure, IsShownAndTheFormKept)
{
    const QJsonObject before = model->requestBody();
    submit();
    answer(0, GetParam().answer, GetParam().status);
    EXPECT_EQ(alertOf(*model), (QList<QString>{failed, GetParam().message}));
    EXPECT_FALSE(success().has_value());
    EXPECT_FALSE(model->isSubmitting.value());
    EXPECT_EQ(model->requestBody(), before);
    EXPECT_TRUE(auth.isSignedIn());
    submit();
    EXPECT_EQ(requestCount(), 2) << "nothing was booked, so the next press books";
    EXPECT_EQ(line(1), u"POST /remote-notary/sessions"_s);
}

const QString couldNotComplete = u"We could not complete that request. Please try again."_s;

INSTANTIATE_TEST_SUITE_P(Answers, BookingFailure,
    testing::Values(
        Failure{"ServersOwnWords", 422, R"({"message": "That time is taken."})", u"That time is taken."_s},
        Failure{"Forbidden", 403, "{}", u"You do not have access to that section."_s},
        Failure{"NoWords", 500, "{}", couldNotComplete},
        Failure{"AnswerIsAList", 200, "[]", couldNotComplete},
        Failure{"Redirect", 302, "{}", couldNotComplete}),
    ByName());

TEST_F(BookingSubmissionTest, ConnectionFailureIsShownAndTheFormKept)
{
    submit();
    fail(0, TransportError::Code::NetworkConnectionLost);
    EXPECT_EQ(alertOf(*model),
        (QList<QString>{
            failed, u"Connection problem. Please check your internet connection and try again."_s}));
    EXPECT_FALSE(model->isSubmitting.value());
    EXPECT_EQ(model->details.value(), u" Sign the deed "_s);
}

TEST_F(BookingSubmissionTest, SessionExpirySignsOutWithoutAWord)
{
    submit();
    answer(0, "{}", 401);
    EXPECT_FALSE(auth.isSignedIn());
    EXPECT_TRUE(alertOf(*model).isEmpty());
    EXPECT_FALSE(success().has_value());
    EXPECT_FALSE(model->isSubmitting.value());
}

struct Resolution
{
    const char* name;
    QByteArray answer;
    qint64 id;
};

void PrintTo(const Resolution& resolution, std::ostream* out)
{
    *out << resolution.name;
}

class BookingResolution : public BookingSubmissionTest, public testing::WithParamInterface<Resolution>
{ };

TEST_P(BookingResolution, ReadsTheIdFromTheAnswer)
{
    resolve(GetParam().answer, u"RN-1"_s);
    EXPECT_EQ(found(), GetParam().id);
    EXPECT_EQ(requestCount(), 0);
}

INSTANTIATE_TEST_SUITE_P(Answers, BookingResolution,
    testing::Values(Resolution{"Id", R"({"id": 5, "session_id": 6})", 5},
        Resolution{"IdAsText", R"({"id": "5"})", 5},
        Resolution{"SessionId", R"({"session_id": 42, "remote_notary_session_id": 9})", 42},
        Resolution{"UnusableId", R"({"id": "RN-5", "session_id": 6})", 6},
        Resolution{"RemoteId", R"({"remote_notary_session_id": 9, "session": {"id": 1}})", 9},
        Resolution{"InnerId", R"({"session": {"id": 7, "session_id": 8}})", 7},
        Resolution{"InnerSessionId", R"({"session": {"id": null, "session_id": 8}})", 8},
        Resolution{"Zero", R"({"id": 0, "session_id": 6})", 0}),
    ByName());

struct Lookup
{
    const char* name;
    QString reference;
    QByteArray list;
    std::optional<qint64> id;
};

void PrintTo(const Lookup& lookup, std::ostream* out)
{
    *out << lookup.name;
}

class BookingLookup : public BookingSubmissionTest, public testing::WithParamInterface<Lookup>
{ };

TEST_P(BookingLookup, FindsTheSessionByItsReference)
{
    resolve("{}", GetParam().reference);
    ASSERT_EQ(requestCount(), 1);
    EXPECT_EQ(line(0), u"GET /remote-notary/sessions"_s);
    answer(0, GetParam().list);
    EXPECT_EQ(found(), GetParam().id);
}

INSTANTIATE_TEST_SUITE_P(Lists, BookingLookup,
    testing::Values(Lookup{"ByReference", u"RN-2"_s,
                        R"([{"id": 1, "reference_id": "RN-1"}, {"id": 2, "reference_id": "RN-2"}])", 2},
        Lookup{"FirstWins", u"RN-1"_s,
            R"([{"id": 1, "reference_id": "RN-1"}, {"id": 2, "reference_id": "RN-1"}])", 1},
        Lookup{"ByIdAsText", u"17"_s, R"([{"id": 16}, {"id": "17"}])", 17},
        Lookup{"ByIdBehindAnotherReference", u"17"_s, R"([{"id": 17, "reference_id": "RN-17"}])", 17},
        Lookup{"BySessionId", u"17"_s, R"([{"session_id": 17}])", 17},
        Lookup{"AnEarlierIdBeatsALaterReference", u"17"_s, R"([{"id": 17}, {"id": 3, "reference_id": "17"}])",
            17},
        Lookup{"LetterCaseCounts", u"rn-1"_s, R"([{"id": 1, "reference_id": "RN-1"}])", std::nullopt},
        Lookup{"None", u"RN-3"_s, R"({"sessions": [{"id": 1}]})", std::nullopt},
        Lookup{"FallbackMatchesNothing", u"your new request"_s, R"([{"id": 1}])", std::nullopt},
        Lookup{"EmptyList", u"RN-3"_s, "[]", std::nullopt}),
    ByName());

TEST_F(BookingSubmissionTest, AnEmptyReferenceIsNotLookedUp)
{
    resolve("{}", u" \n"_s);
    EXPECT_EQ(found(), std::nullopt);
    EXPECT_EQ(requestCount(), 0);
}

TEST_F(BookingSubmissionTest, AFailedLookupLeavesTheBookingStanding)
{
    submit();
    answer(0, R"({"reference_id": "RN-7"})");
    ASSERT_EQ(requestCount(), 2);
    EXPECT_FALSE(success().has_value());
    answer(1, R"({"message": "Busy."})", 503);
    EXPECT_EQ(success(), created(u"RN-7"_s));
    EXPECT_TRUE(alertOf(*model).isEmpty());
}

TEST_F(BookingSubmissionTest, ABookingIsToldEvenWhenItsLookupEndsTheSession)
{
    submit();
    answer(0, R"({"reference_id": "RN-7"})");
    EXPECT_FALSE(notice.value());
    answer(1, "{}", 401);
    EXPECT_FALSE(auth.isSignedIn());
    ASSERT_TRUE(notice.value()) << "the sign-in screen has taken the place of the form";
    EXPECT_EQ(notice.value()->title, u"Request Submitted"_s);
    EXPECT_EQ(notice.value()->message, created(u"RN-7"_s));
    EXPECT_EQ(success(), created(u"RN-7"_s)) << "for when its person comes back";
}

/// Whatever the bridge answers to a booking that it has accepted, the booking stands and the person is told
/// so.
TEST_F(BookingSubmissionTest, AnyTypeInAnyFieldOfTheAnswerIsASuccess)
{
    const QList<QByteArray> fields{
        "id", "session_id", "remote_notary_session_id", "reference_id", "session", "data", "user"};
    const QList<QByteArray> values{"\"text\"", "\" 12\"", "12", "1.5", "null", "\"null\"", "true", "[]",
        "[1]", "[{}]", "{}", R"({"id": []})", "\"\""};
    for (const QByteArray& field : fields) {
        for (const QByteArray& value : values) {
            model->resetForm();
            fillIn();
            attach(u"deed.pdf"_s);
            submit();
            answer(requestCount() - 1, "{\"" + field + "\": " + value + "}");
            if (line(requestCount() - 1).startsWith(u"GET"))
                answer(requestCount() - 1, "[{\"" + field + "\": " + value + "}]");
            if (line(requestCount() - 1).endsWith(u"/documents"))
                answer(requestCount() - 1, value == "[]" ? "{}" : "{\"data\": " + value + "}");
            EXPECT_TRUE(success().has_value()) << field.toStdString() << ": " << value.toStdString();
            EXPECT_TRUE(alertOf(*model).isEmpty());
        }
    }
}

TEST_F(BookingSubmissionTest, ALateSuccessForSomebodyElseShowsNothing)
{
    attach(u"deed.pdf"_s);
    submit();
    replaceUser(account(u"Second"_s));
    answer(0, R"({"reference_id": "RN-7"})");
    EXPECT_EQ(requestCount(), 1) << "the id is not looked up, the file not sent";
    EXPECT_FALSE(success().has_value());
    EXPECT_FALSE(model->isSubmitting.value());
    EXPECT_TRUE(alertOf(*model).isEmpty());
    EXPECT_EQ(auth.displayName(), u"Second"_s);
}

TEST_F(BookingSubmissionTest, ALateFailureForSomebodyElseShowsNothingAndSignsNobodyOut)
{
    for (const int status : {500, 401}) {
        submit();
        replaceUser(account(u"Second"_s));
        answer(requestCount() - 1, "{}", status);
        EXPECT_TRUE(alertOf(*model).isEmpty());
        EXPECT_FALSE(model->isSubmitting.value());
        EXPECT_TRUE(auth.isSignedIn());
    }
}

TEST_F(BookingSubmissionTest, AFormResetMeanwhileStaysReset)
{
    submit();
    model->resetForm();
    EXPECT_FALSE(model->isSubmitting.value());
    answer(0, R"({"id": 7})");
    EXPECT_FALSE(success().has_value());
    EXPECT_EQ(model->details.value(), QString());
    fillIn();
    submit();
    ASSERT_EQ(requestCount(), 2) << "the same request by a fresh form is another request";
    EXPECT_EQ(line(1), u"POST /remote-notary/sessions"_s);
}

TEST_F(BookingSubmissionTest, AFreshFormsSubmissionIsNotEndedByAnEarlierOne)
{
    submit();
    model->resetForm();
    fillIn();
    submit();
    answer(0, R"({"id": 7})");
    EXPECT_TRUE(model->isSubmitting.value());
    EXPECT_FALSE(success().has_value());
    answer(1, R"({"id": 8})");
    EXPECT_FALSE(model->isSubmitting.value());
    EXPECT_EQ(success(), created(u"8"_s));
}

TEST_F(BookingSubmissionTest, EndsItsWorkAlthoughTheScreenHasGone)
{
    const std::weak_ptr<BookRemoteNotaryModel> gone = model;
    submit();
    model.reset();
    EXPECT_FALSE(gone.expired());
    answer(0, R"({"reference_id": "RN-7"})");
    EXPECT_EQ(requestCount(), 2);
    answer(1, "[]");
    EXPECT_TRUE(gone.expired());
}

TEST_F(BookingSubmissionTest, OutlivesTheEndOfTheWebSession)
{
    submit();
    EXPECT_EQ(request(0).method, "POST");
    webSession.reset();
    EXPECT_FALSE(model->isSubmitting.value());
    EXPECT_FALSE(success().has_value());
}

} // namespace
