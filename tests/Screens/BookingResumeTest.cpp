#include "BookingUploadTest.h"

using namespace Qt::StringLiterals;

namespace {

/// A booking whose files did not all arrive, and what the next press makes of it.
class BookingResume : public BookingUploadTest
{ };

TEST_F(BookingResume, TheSameRequestAgainGoesOnWithTheMissingFiles)
{
    bookWithThreeFiles();
    answer(1, "{}");
    fail(2);
    submit();
    ASSERT_EQ(requestCount(), 4);
    EXPECT_EQ(line(3), u"POST /remote-notary/sessions/7/documents"_s) << "no second session is booked";
    EXPECT_EQ(filesOf(3), QList<QString>{u"b.pdf"_s});
    EXPECT_EQ(progress(), u"Uploading 2 of 3: b.pdf"_s);
    EXPECT_DOUBLE_EQ(model->uploadProgress.value(), 1.0 / 3);
    answer(3, "{}");
    EXPECT_EQ(filesOf(4), QList<QString>{u"c.pdf"_s});
    answer(4, "{}");
    EXPECT_EQ(requestCount(), 5);
    EXPECT_EQ(success(), createdText + u" 3 files uploaded into the session."_s);
}

TEST_F(BookingResume, FilesAddedMeanwhileAreNeitherSentNorTakenAway)
{
    attach(u"a.pdf"_s);
    submit();
    answer(0, R"({"id": 7})");
    attach(u"late.pdf"_s);
    answer(1, "{}");
    EXPECT_EQ(requestCount(), 2);
    EXPECT_EQ(success(), createdText + u" 1 file uploaded into the session."_s);
    EXPECT_EQ(attachedNames(), QList<QString>{u"late.pdf"_s});
}

TEST_F(BookingResume, GoesOnAsOftenAsItTakes)
{
    bookWithThreeFiles();
    for (int attempt = 0; attempt < 3; ++attempt) {
        fail(requestCount() - 1);
        submit();
        EXPECT_EQ(filesOf(requestCount() - 1), QList<QString>{u"a.pdf"_s});
    }
    model->removeUpload(model->pendingUploads().at(2).id);
    answer(4, "{}");
    EXPECT_EQ(filesOf(5), QList<QString>{u"b.pdf"_s});
    answer(5, "{}");
    EXPECT_EQ(success(), createdText + u" 2 files uploaded into the session."_s);
}

TEST_F(BookingResume, TheRequestStandsEvenWhenTheFilesAreGivenUp)
{
    bookWithThreeFiles();
    fail(1);
    model->clearUploads();
    submit();
    EXPECT_EQ(requestCount(), 2) << "it is booked already";
    EXPECT_EQ(success(), createdText);
}

TEST_F(BookingResume, FilesThatArrivedAreNamedEvenWhenTheOthersAreGivenUp)
{
    bookWithThreeFiles();
    answer(1, "{}");
    fail(2);
    model->clearUploads();
    submit();
    EXPECT_EQ(requestCount(), 3);
    EXPECT_EQ(success(), createdText + u" 1 file uploaded into the session."_s);
}

/// What may happen between the press that booked and the one that sends the missing file, without a change of
/// the request by its person.
enum class Meanwhile
{
    nothing,
    theMomentPasses,
    theProfileComes,
    anotherRole,
};

class BookedOnce : public BookingResume, public testing::WithParamInterface<Meanwhile>
{
protected:
    BookedOnce()
    {
        signIn(account(u"Priya"_s, {AppRole::business}));
        launch(model->prefill());
        fillIn();
        model->contactPhone = QString();
        attach(u"a.pdf"_s);
        attach(u"b.pdf"_s);
        submit();
        answer(1, R"({"id": 7})");
        answer(2, "{}");
    }

    void happen(Meanwhile what)
    {
        if (what == Meanwhile::theMomentPasses)
            now = now.addYears(100);
        if (what == Meanwhile::anotherRole)
            auth.switchRole(AppRole::business);
        if (what == Meanwhile::theProfileComes)
            answer(0, R"({"phone": "(555) 010-0199"})");
    }
};

TEST_P(BookedOnce, GoesOnWithTheMissingFile)
{
    happen(GetParam());
    fail(3);
    submit();
    ASSERT_EQ(requestCount(), 5);
    EXPECT_EQ(line(4), u"POST /remote-notary/sessions/7/documents"_s);
    EXPECT_EQ(filesOf(4), QList<QString>{u"b.pdf"_s});
    answer(4, "{}");
    EXPECT_EQ(success(), createdText + u" 2 files uploaded into the session."_s);
    EXPECT_EQ(model->contactPhone.value(), QString());
    EXPECT_EQ(line(0), u"GET /profile"_s);
}

INSTANTIATE_TEST_SUITE_P(Happenings, BookedOnce,
    testing::Values(
        Meanwhile::nothing, Meanwhile::theMomentPasses, Meanwhile::theProfileComes, Meanwhile::anotherRole));

TEST_F(BookingResume, ASessionThatEndsWhileItIsBookedBooksNoOtherWhenItsPersonReturns)
{
    attach(u"a.pdf"_s);
    submit();
    const AuthUser person = *auth.user.value();
    auth.signOut();
    answer(0, R"({"id": 7})");
    EXPECT_FALSE(success().has_value());
    signIn(person);
    submit();
    ASSERT_EQ(requestCount(), 2);
    EXPECT_EQ(line(1), u"POST /remote-notary/sessions/7/documents"_s);
    answer(1, "{}");
    EXPECT_TRUE(success().has_value());
}

TEST_F(BookingResume, AChangedRequestBooksAnew)
{
    bookWithThreeFiles();
    answer(1, "{}");
    fail(2);
    model->details = u"Sign the will"_s;
    submit();
    ASSERT_EQ(requestCount(), 4);
    EXPECT_EQ(line(3), u"POST /remote-notary/sessions"_s);
    answer(3, R"({"id": 8})");
    for (qsizetype k = 4; k < 7; ++k) {
        EXPECT_EQ(line(k), u"POST /remote-notary/sessions/8/documents"_s);
        answer(k, "{}");
    }
    EXPECT_EQ(filesOf(4), QList<QString>{u"a.pdf"_s}) << "the new session has none of the files yet";
    EXPECT_EQ(requestCount(), 7);
}

TEST_F(BookingResume, ABookingThatSucceededIsForgotten)
{
    attach(u"a.pdf"_s);
    submit();
    answer(0, R"({"id": 7})");
    answer(1, "{}");
    model->successMessage = std::nullopt;
    submit();
    ASSERT_EQ(requestCount(), 3);
    EXPECT_EQ(line(2), u"POST /remote-notary/sessions"_s) << "the same request on purpose is another request";
}

TEST_F(BookingResume, AResetFormForgetsTheUnfinishedBooking)
{
    bookWithThreeFiles();
    fail(1);
    model->resetForm();
    fillIn();
    submit();
    EXPECT_EQ(line(2), u"POST /remote-notary/sessions"_s);
}

} // namespace
