#include "BookRemoteNotaryViewTest.h"
#include "Components/ComboBox.h"
#include "Components/DateField.h"
#include "Components/LineInput.h"
#include "Components/PendingFileRow.h"
#include "Components/ProgressBar.h"
#include "Components/Switch.h"

#include <QLineEdit>
#include <QPlainTextEdit>

using namespace Qt::StringLiterals;

using BookRemoteNotaryViewLifetime = BookRemoteNotaryViewTest;

TEST_F(BookRemoteNotaryViewLifetime, AVisitToAnotherSectionLosesNothing)
{
    show();
    type(named(u"Name"_s, contact()), u"Ada Client"_s);
    type(named(u"What needs to be notarized?"_s), u"Sign the deed"_s);
    click(named(u"Priority Document Retrieval (Rush)"_s));
    click(named(u"ASAP, earliest available"_s));
    click(named(u"Unknown"_s));
    click(named(u"Add Signer"_s));
    type(named(u"Name"_s, signer(2)), u"Tomas Alder"_s);
    named(u"ID Type"_s, signer(2))->setFocus();
    press(Qt::Key_Down);
    const QDate expiration = named<DateField>(u"ID Expiration"_s, signer(2))->date();
    attach({u"deed.pdf"_s});
    type(view->findChild<PendingFileRow*>()->labelField(), u"The deed"_s);
    const QPointer<QWidget> old = view;

    leave();
    EXPECT_FALSE(old);
    now = now.addDays(1);
    show();

    EXPECT_EQ(requestCount(), 1);
    EXPECT_EQ(named<QLineEdit>(u"Name"_s, contact())->text(), u"Ada Client"_s);
    EXPECT_EQ(named<QPlainTextEdit>(u"What needs to be notarized?"_s)->toPlainText(), u"Sign the deed"_s);
    EXPECT_TRUE(shows(u"$25.00"_s));
    EXPECT_TRUE(named<Switch>(u"ASAP, earliest available"_s)->isChecked());
    EXPECT_FALSE(shows(u"Past dates and times are blocked."_s));
    EXPECT_TRUE(shows(u"Number of Signatures: Unknown"_s));
    EXPECT_EQ(named<QLineEdit>(u"Name"_s, signer(2))->text(), u"Tomas Alder"_s);
    EXPECT_EQ(named<ComboBox>(u"ID Type"_s, signer(2))->currentText(), u"NY Driver License"_s);
    EXPECT_EQ(named<DateField>(u"ID Expiration"_s, signer(2))->date(), expiration);
    EXPECT_EQ(view->findChild<PendingFileRow*>()->label(), u"The deed"_s);
}

TEST_F(BookRemoteNotaryViewLifetime, AnUploadRunsOnWithoutItsScreen)
{
    show();
    fillIn();
    attach({u"deed.pdf"_s, u"map.png"_s});
    click(submitButton());
    answer(1, R"({"id":7,"reference_id":"RN-7"})");
    leave();
    webSession->reportProgress(2, 3, 100);
    answer(2, "{}");
    show();
    EXPECT_TRUE(shows(u"Uploading 2 of 2: map.png"_s));
    EXPECT_TRUE(named<ProgressBar>(u"Upload progress"_s)->value() > 0);
    leave();
    answer(3, "{}");
    show();
    EXPECT_TRUE(shows(u"Request Submitted"_s));
    EXPECT_FALSE(shows(u"Signers"_s));
}

TEST_F(BookRemoteNotaryViewLifetime, AnAlertThatCameMeanwhileIsShownOnReturn)
{
    show();
    fillIn();
    click(submitButton());
    leave();
    answer(1, "{}", 500);
    EXPECT_FALSE(alert());
    show();
    ASSERT_TRUE(alert());
    EXPECT_EQ(alert()->title(), u"Booking Failed"_s);
    click(alert()->okButton());
    EXPECT_FALSE(model->alert.value());
}

TEST_F(BookRemoteNotaryViewLifetime, TheViewMayBeTheLastToHoldItsModel)
{
    show();
    fillIn();
    attach({u"deed.pdf"_s});
    const std::weak_ptr<BookRemoteNotaryModel> held = model;
    for (const QString& name : {u"What needs to be notarized?"_s, u"Preferred Date & Time"_s}) {
        named(name)->setFocus();
        press(Qt::Key_Up);
    }
    model.reset();
    EXPECT_FALSE(held.expired());
    leave();
    EXPECT_TRUE(held.expired());
}

TEST_F(BookRemoteNotaryViewLifetime, TheModelOutlivesAViewThatWasNeverShown)
{
    {
        const BookRemoteNotaryView unseen(model);
    }
    EXPECT_EQ(requestCount(), 0);
    model->contactName = u"Ada Client"_s;
    model->addSigner();
    show();
    EXPECT_EQ(requestCount(), 1);
    EXPECT_EQ(line(0), u"GET /profile"_s);
    EXPECT_TRUE(signer(2));
}
