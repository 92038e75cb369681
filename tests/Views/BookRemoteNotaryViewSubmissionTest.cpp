#include "BookRemoteNotaryViewTest.h"
#include "Components/Button.h"
#include "Components/ProgressBar.h"

#include <QLineEdit>
#include <QScrollArea>
#include <QScrollBar>

using namespace Qt::StringLiterals;

namespace {

class BookRemoteNotaryViewSubmission : public BookRemoteNotaryViewTest
{
protected:
    void fillAndShow()
    {
        show();
        fillIn();
    }
};

const QByteArray booked = R"({"id":7,"reference_id":"RN-7"})";

} // namespace

TEST_F(BookRemoteNotaryViewSubmission, AFaultIsShownInAnAlertAndNothingIsSent)
{
    show();
    model->contactName = u"  "_s;
    click(submitButton());
    ASSERT_TRUE(alert());
    EXPECT_EQ(alert()->title(), u"Missing Information"_s);
    EXPECT_EQ(alert()->message(), u"Enter the contact name."_s);
    EXPECT_EQ(requestCount(), 1);
    press(Qt::Key_Return);
    EXPECT_FALSE(alert());
    EXPECT_FALSE(model->alert.value());
    EXPECT_EQ(model->contactName.value(), u"  "_s);
}

TEST_F(BookRemoteNotaryViewSubmission, TheSameFaultTwiceIsShownTwice)
{
    show();
    model->contactName = QString();
    for (int time = 0; time < 2; ++time) {
        click(submitButton());
        ASSERT_TRUE(alert());
        click(alert()->okButton());
        EXPECT_FALSE(alert());
    }
}

TEST_F(BookRemoteNotaryViewSubmission, ADoubleClickBooksOnce)
{
    fillAndShow();
    Button* button = submitButton();
    QTest::mouseClick(button, Qt::LeftButton);
    QTest::mouseDClick(button, Qt::LeftButton);
    QTest::mouseRelease(button, Qt::LeftButton);
    settle();
    EXPECT_EQ(requestCount(), 2);
    answer(1, booked);
}

TEST_F(BookRemoteNotaryViewSubmission, KeysAndClicksDuringASubmissionBookOnce)
{
    fillAndShow();
    submitButton()->setFocus();
    press(Qt::Key_Return);
    EXPECT_TRUE(submitButton()->isLoading());
    press(Qt::Key_Return);
    press(Qt::Key_Space);
    click(submitButton());
    accessible(submitButton())->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    settle();
    EXPECT_EQ(requestCount(), 2);
    EXPECT_TRUE(accessible(submitButton())->state().busy);
    answer(1, booked);
}

TEST_F(BookRemoteNotaryViewSubmission, AFailureKeepsTheFormAndTheButton)
{
    fillAndShow();
    click(submitButton());
    answer(1, R"({"message":"The calendar is closed."})", 422);
    ASSERT_TRUE(alert());
    EXPECT_EQ(alert()->title(), u"Booking Failed"_s);
    click(alert()->okButton());
    EXPECT_FALSE(submitButton()->isLoading());
    EXPECT_EQ(named<QLineEdit>(u"Name"_s, contact())->text(), u"Maya Whitfield"_s);
    click(submitButton());
    EXPECT_EQ(requestCount(), 3);
    answer(2, booked);
}

TEST_F(BookRemoteNotaryViewSubmission, TheSuccessCardReplacesTheForm)
{
    fillAndShow();
    submitButton()->setFocus();
    press(Qt::Key_Space);
    answer(1, booked);
    EXPECT_TRUE(shows(u"Request Submitted"_s));
    EXPECT_TRUE(
        shows(u"Remote notary request RN-7 was created. Our team will review and confirm the session."_s));
    EXPECT_TRUE(shows(u"Book a Session"_s));
    EXPECT_FALSE(shows(u"Signers"_s));
    EXPECT_EQ(focused(), u"View Sessions"_s);
    click(named(u"View Sessions"_s));
    EXPECT_EQ(router.selectedSection.value(), AppSection::sessions);
    EXPECT_FALSE(router.selectedSessionId.value());
}

TEST_F(BookRemoteNotaryViewSubmission, AReferenceIsShownAsItStands)
{
    fillAndShow();
    click(submitButton());
    answer(1, R"({"id":7,"reference_id":"<b>RN</b> & co"})");
    EXPECT_TRUE(
        shows(u"Remote notary request <b>RN</b> & co was created. Our team will review and confirm the "
              "session."_s));
}

TEST_F(BookRemoteNotaryViewSubmission, BookAnotherShowsAFreshFormFromItsTop)
{
    fillAndShow();
    model->notes = u"Ring twice"_s;
    model->addSigner();
    model->editSigner(1, [](SignerDraft& signer) {
        signer.name = u"Tomas Alder"_s;
        signer.idType = u"Passport"_s;
    });
    submitButton()->setFocus();
    press(Qt::Key_Return);
    answer(1, booked);
    press(Qt::Key_Tab);
    EXPECT_EQ(focused(), u"Book Another"_s);
    press(Qt::Key_Return);
    EXPECT_EQ(requestCount(), 2) << "nobody's profile is asked for";
    EXPECT_TRUE(shows(u"Contact Information"_s));
    EXPECT_EQ(focused(), u"Name"_s);
    EXPECT_TRUE(contact()->isAncestorOf(QApplication::focusWidget()));
    for (const QString& field : {u"Name"_s, u"Email"_s, u"Phone"_s})
        EXPECT_EQ(named<QLineEdit>(field, contact())->text(), QString());
    EXPECT_EQ(model->notes.value(), QString());
    EXPECT_FALSE(shows(u"Signer 2"_s));
    EXPECT_EQ(view->findChild<QScrollArea*>()->verticalScrollBar()->value(), 0);
}

TEST_F(BookRemoteNotaryViewSubmission, TheUploadShowsHowFarItIs)
{
    fillAndShow();
    model->addBookingFileURLs(
        {file(u"deed.pdf"_s, QByteArray(300, 'x')), file(u"map.png"_s, QByteArray(100, 'x'))});
    click(submitButton());
    answer(1, booked);
    auto* bar = named<ProgressBar>(u"Upload progress"_s);
    EXPECT_EQ(accessible(bar)->role(), QAccessible::ProgressBar);
    EXPECT_TRUE(shows(u"Uploading 1 of 2: deed.pdf"_s));
    EXPECT_EQ(bar->value(), bar->minimum());
    webSession->reportProgress(2, 200, 500);
    EXPECT_EQ(bar->value(), bar->maximum() / 3) << "two thirds of the first of two files";
    answer(2, "{}");
    EXPECT_TRUE(shows(u"Uploading 2 of 2: map.png"_s));
    EXPECT_EQ(bar->value(), bar->maximum() / 2) << "as the words say";
    answer(3, "{}");
    EXPECT_TRUE(
        shows(u"Remote notary request RN-7 was created. Our team will review and confirm the session. 2 "
              "files uploaded into the session."_s));
}

TEST_F(BookRemoteNotaryViewSubmission, AFailedUploadLeavesNoProgressBehind)
{
    fillAndShow();
    attach({u"deed.pdf"_s});
    click(submitButton());
    answer(1, booked);
    answer(2, "{}", 500);
    ASSERT_TRUE(alert());
    EXPECT_FALSE(shows(u"Uploading 1 of 1: deed.pdf"_s));
    EXPECT_FALSE(view->findChild<ProgressBar*>()->isVisible());
    EXPECT_TRUE(shows(u"Attached to Booking"_s));
}
