#include "AdminViewTest.h"

#include "Components/AlertDialog.h"
#include "Components/ComboBox.h"
#include "Components/PlainLabel.h"
#include "Components/QuestionDialog.h"
#include "Components/SearchField.h"
#include "Components/Switch.h"
#include "Screens/Cases.h"
#include "Shell/MainWindow.h"
#include "support/SteadyAppearance.h"

#include <QLineEdit>
#include <QPlainTextEdit>

using namespace Qt::StringLiterals;

namespace {

const QByteArray threeUsers = R"({"users": [
    {"id": 1, "full_name": "Maya Whitfield", "email": "maya@example.com", "role": "admin"},
    {"id": 2, "email": "desk@harbor.example.org", "phone": "(555) 010-0188", "role": "title_agency"},
    {"id": 3, "full_name": "<b>Noor</b>", "email": "noor@example.com"}]})";
const QByteArray twoRecords = R"({"records": [
    {"id": 4, "record_type": "walkin", "signer_names": ["Bernard Cole"], "scheduled_date": "2026-03-12",
     "scheduled_time": "1:05 PM", "document_type": "Acknowledgment"},
    {"id": 5, "status": "scheduled", "contact_name": "Priya Raman", "signers": [], "notes": "Both\nconfirmed"}]})";
const QByteArray twoNotaries = R"({"notaries": [
    {"id": 6, "name": "Noor Haddad", "county": "Queens", "state": "New York", "active": true},
    {"id": 7, "name": "Jonah Marsh", "county": "Suffolk", "state": "New York", "active": false}]})";

/// The texts of all visible labels.
QStringList labels(const QWidget& in)
{
    QStringList texts;
    for (const auto* label : in.findChildren<PlainLabel*>()) {
        if (label->isVisible())
            texts += label->text();
    }
    return texts;
}

/// The captions and titles of what Tab goes through, from a control on.
QStringList tabStops(QWidget* first, int count)
{
    QStringList names;
    first->setFocus(Qt::TabFocusReason);
    for (int i = 0; i < count; ++i) {
        names += QApplication::focusWidget()->accessibleName();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    return names;
}

TEST_F(AdminViewTest, RecordsSayWhatTheyAre)
{
    openRecords(twoRecords);
    EXPECT_EQ(rows(),
        (QStringList{u"Bernard Cole, 2026-03-12 1:05 PM, Acknowledgment, Walk-In"_s,
            u"Priya Raman, Date pending, scheduled"_s}));
    EXPECT_EQ(
        view->findChild<SearchField*>()->placeholderText(), u"Search records, signers, status, email"_s);
    const QStringList texts = labels(*view);
    EXPECT_TRUE(texts.contains(u"Records"_s));
    EXPECT_TRUE(texts.contains(u"View, edit, and delete walk-in records and remote session records."_s));
    EXPECT_TRUE(texts.contains(u"Select a Record"_s)) << "nothing is selected yet";
}

TEST_F(AdminViewTest, UsersSayWhoTheyAre)
{
    openUsers(threeUsers);
    EXPECT_EQ(rows(),
        (QStringList{u"Maya Whitfield, maya@example.com, admin"_s,
            u"desk@harbor.example.org, desk@harbor.example.org, title_agency"_s,
            u"<b>Noor</b>, noor@example.com, client"_s}));
    EXPECT_TRUE(labels(*view).contains(u"Choose a user to edit profile fields or change password."_s));
}

TEST_F(AdminViewTest, NotariesSayWhoTheyAre)
{
    openNotaries(twoNotaries);
    EXPECT_EQ(rows(),
        (QStringList{
            u"Noor Haddad, Queens, New York, active"_s, u"Jonah Marsh, Suffolk, New York, inactive"_s}));
    EXPECT_TRUE(labels(*view).contains(u"Choose a notary to edit or delete."_s));
}

TEST_F(AdminViewTest, TabGoesThroughARecord)
{
    openRecords(twoRecords);
    clickRow(1);
    EXPECT_EQ(tabStops(box(u"Status"_s), 10),
        (QStringList{u"Status"_s, u"Document Type"_s, u"Contact Name"_s, u"Contact Email"_s,
            u"Contact Phone"_s, u"Date"_s, u"Time"_s, u"Notes"_s, u"Delete"_s, u"Save Record"_s}));
}

TEST_F(AdminViewTest, TabGoesThroughAUser)
{
    openUsers(threeUsers);
    clickRow(1);
    EXPECT_EQ(tabStops(box(u"Name"_s), 7),
        (QStringList{
            u"Name"_s, u"Email"_s, u"Phone"_s, u"Role"_s, u"New Password"_s, u"Delete"_s, u"Save User"_s}));
}

TEST_F(AdminViewTest, TabGoesThroughANotary)
{
    openNotaries(twoNotaries);
    clickRow(0);
    EXPECT_EQ(tabStops(box(u"Name"_s), 12),
        (QStringList{u"Name"_s, u"Email"_s, u"Phone"_s, u"State"_s, u"County"_s, u"Billing Status"_s,
            u"Commission Number"_s, u"Commission Expiration"_s, u"Active"_s, u"New Password"_s, u"Delete"_s,
            u"Save Notary"_s}));
}

TEST_F(AdminViewTest, WhatIsTypedIntoAUserIsSaved)
{
    openUsers(threeUsers);
    clickRow(1);
    EXPECT_TRUE(labels(*view).contains(u"User Details"_s));
    type(u"Name"_s, u"Harbor"_s);
    type(u"Role"_s, u"office"_s);
    type(u"New Password"_s, u"secret"_s);
    EXPECT_EQ(qobject_cast<QLineEdit*>(box(u"New Password"_s))->echoMode(), QLineEdit::Password);
    click(button(u"Save User"_s));
    EXPECT_EQ(line(1), u"POST /admin/users/2"_s);
    EXPECT_EQ(body(1), object(R"({"full_name": "Harbor", "name": "Harbor", "email": "desk@harbor.example.org",
        "phone": "(555) 010-0188", "role": "office", "password": "secret", "new_password": "secret"})"));
    EXPECT_TRUE(button(u"Save User"_s)->isLoading());
    EXPECT_FALSE(button(u"Delete"_s)->isEnabled());

    answer(1, "{}");
    auto* alert = view->findChild<AlertDialog*>();
    ASSERT_NE(alert, nullptr);
    EXPECT_EQ(alert->title(), u"Saved"_s);
    EXPECT_EQ(alert->message(), u"User was updated."_s);
    answer(2, threeUsers);
    EXPECT_FALSE(button(u"Save User"_s)->isLoading());
    EXPECT_EQ(qobject_cast<QLineEdit*>(box(u"Name"_s))->text(), u"Harbor"_s);
}

TEST_F(AdminViewTest, WhatIsTypedIntoARecordIsSaved)
{
    openRecords(twoRecords);
    clickRow(1);
    type(u"Status"_s, u"done"_s);
    type(u"Time"_s, u"2 PM"_s);
    type(u"Notes"_s, u"Fine"_s);
    click(button(u"Save Record"_s));
    EXPECT_EQ(body(1), object(R"({"record_type": "remote", "source": "remote_notary_sessions", "data": {
        "status": "done", "contact_name": "Priya Raman", "contact_email": "", "contact_phone": "",
        "document_type": "", "scheduled_date": "", "scheduled_time": "2 PM", "notes": "Fine"}})"));
}

TEST_F(AdminViewTest, TextsThatAFieldShowsDifferentlyAreNoEdits)
{
    const QByteArray odd
        = R"("status": "on\r\nhold", "contact_name": "\ta\u2028b\u0001", "contact_email": " a ",
        "contact_phone": "\u202e555", "document_type": "\u00a0Deed", "notes": "a\r\nb\u00a0c\u2029d\n")";
    openRecords("[{\"id\": 5, " + odd + "}]");
    clickRow(0);
    for (int i = 0; i < 9; ++i)
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    style()->setDark(true);
    view->resize(700, 600);
    settle();
    EXPECT_FALSE(records->detail()->hasEdits());
    type(u"Time"_s, u"2 PM"_s);
    click(button(u"Save Record"_s));
    EXPECT_EQ(body(1).value(u"data"_s).toObject(),
        object("{" + odd + R"(, "scheduled_date": "", "scheduled_time": "2 PM"})"));
}

TEST_F(AdminViewTest, TheSwitchOfANotaryIsSaved)
{
    openNotaries(twoNotaries);
    clickRow(0);
    auto* active = view->findChild<Switch*>();
    EXPECT_TRUE(active->isChecked());
    active->setFocus();
    QTest::keyClick(active, Qt::Key_Space);
    click(button(u"Save Notary"_s));
    EXPECT_EQ(body(1)[u"active"_s], QJsonValue(false));
}

TEST_F(AdminViewTest, DeleteDoesItAtOnce)
{
    openUsers(threeUsers);
    clickRow(1);
    click(button(u"Delete"_s));
    EXPECT_EQ(line(1), u"DELETE /admin/users/2"_s);
    EXPECT_EQ(view->findChild<QuestionDialog*>(), nullptr);
    answer(1, "{}");
    EXPECT_EQ(rows().size(), 2);
    EXPECT_TRUE(labels(*view).contains(u"Select a User"_s));
    answer(2, threeUsers);
}

TEST_F(AdminViewTest, AnotherRowFillsThePaneAgain)
{
    openUsers(threeUsers);
    clickRow(1);
    clickRow(2);
    EXPECT_EQ(qobject_cast<QLineEdit*>(box(u"Name"_s))->text(), u"<b>Noor</b>"_s);
    EXPECT_EQ(qobject_cast<QLineEdit*>(box(u"Role"_s))->text(), u"client"_s);
}

TEST_F(AdminViewTest, TheSignersAreListed)
{
    openRecords(twoRecords);
    clickRow(0);
    EXPECT_TRUE(labels(*view).contains(u"Bernard Cole"_s));
    clickRow(1);
    EXPECT_TRUE(labels(*view).contains(u"No signer names found."_s));
    QTest::keyClick(view.get(), Qt::Key_F5);
    answer(1, R"([{"id": 5, "signer_names": ["<i>Ada</i>", "Bea"]}])");
    EXPECT_TRUE(labels(*view).contains(u"<i>Ada</i>"_s));
    EXPECT_TRUE(labels(*view).contains(u"Bea"_s));
    EXPECT_FALSE(labels(*view).contains(u"No signer names found."_s));
}

TEST_F(AdminViewTest, TheTypePickerFilters)
{
    openRecords(twoRecords);
    auto* picker = named<ComboBox>(*view, u"Type"_s);
    ASSERT_NE(picker, nullptr);
    EXPECT_EQ(picker->currentText(), u"All"_s);
    picker->setFocus();
    QTest::keyClick(picker, Qt::Key_End);
    EXPECT_EQ(picker->currentText(), u"Walk-Ins"_s);
    EXPECT_EQ(rows().size(), 1);
    QTest::keyClick(picker, Qt::Key_Up);
    EXPECT_EQ(picker->currentText(), u"Remote Sessions"_s);
    EXPECT_EQ(rows().size(), 1);
}

TEST_F(AdminViewTest, EachKeystrokeFiltersAndTheSelectionComesBack)
{
    openUsers(threeUsers);
    clickRow(1);
    auto* search = view->findChild<SearchField*>();
    QTest::keySequence(view.get(), QKeySequence::Find);
    EXPECT_EQ(QApplication::focusWidget(), search);
    QTest::keyClicks(search, u"NOOR"_s);
    EXPECT_EQ(rows().size(), 1);
    QTest::keyClick(search, Qt::Key_Escape);
    EXPECT_EQ(rows().size(), 3);
    EXPECT_EQ(list()->currentIndex().row(), 1);
}

TEST_F(AdminViewTest, RefreshLoadsAgainAndShowsThatItDoes)
{
    openUsers(threeUsers);
    click(button(u"Refresh"_s));
    ASSERT_EQ(requestCount(), 2);
    EXPECT_TRUE(button(u"Refresh"_s)->isLoading());
    EXPECT_EQ(rows().size(), 3) << "the list stays meanwhile";
    answer(1, "[]");
    EXPECT_FALSE(button(u"Refresh"_s)->isLoading());
    EXPECT_TRUE(labels(*view).contains(u"No Users Found"_s));
}

TEST_F(AdminViewTest, AFailedLoadIsOneAlert)
{
    openUsers(threeUsers);
    click(button(u"Refresh"_s));
    fail(1);
    const auto* alert = view->findChild<AlertDialog*>();
    ASSERT_NE(alert, nullptr);
    EXPECT_EQ(alert->title(), u"Cannot Load Users"_s);
    EXPECT_EQ(rows().size(), 3);
}

TEST_F(AdminViewTest, AFailedSaveIsOneAlertAndKeepsTheFields)
{
    openNotaries(twoNotaries);
    clickRow(0);
    type(u"Email"_s, u"nobody"_s);
    click(button(u"Save Notary"_s));
    answer(1, R"({"error": "Enter a valid email address."})", 422);
    const auto* alert = view->findChild<AlertDialog*>();
    ASSERT_NE(alert, nullptr);
    EXPECT_EQ(alert->title(), u"Cannot Save Notary"_s);
    EXPECT_EQ(alert->message(), u"Enter a valid email address."_s);
    EXPECT_EQ(qobject_cast<QLineEdit*>(box(u"Email"_s))->text(), u"nobody"_s);
}

TEST_F(AdminViewTest, AViewThatGoesDuringASaveLeavesNothingBehind)
{
    openUsers(threeUsers);
    clickRow(1);
    const std::weak_ptr<AdminUserDetailModel> pane = users->detail();
    click(button(u"Save User"_s));
    view.reset();
    users.reset();
    EXPECT_FALSE(pane.expired()) << "the change is on its way";
    answer(1, "{}");
    EXPECT_TRUE(pane.expired());
    EXPECT_EQ(requestCount(), 2);
}

/// The sections in the window, which asks before edits are lost.
class AdminWindowTest : public AdminViewTest
{
protected:
    AdminWindowTest()
    {
        // A window that comes up renews the token of whoever is there.
        auth.signOut();
        show(window);
        router.open(AppSection::adminUsers);
        signInAdmin();
        answer(0, threeUsers);
        clickRow(1, window);
        auto* name = named<QLineEdit>(window, u"Name"_s);
        name->setFocus();
        QTest::keyClicks(name, u"Harbor"_s);
        clickRow(2, window);
    }

    QString shownEmail() { return named<QLineEdit>(window, u"Email"_s)->text(); }
    int selectedRow() { return window.findChild<RowListView*>()->currentIndex().row(); }

    SteadyAppearance system;
    AppearanceModel appearance{defaults, system};
    MainWindowModel windowModel{context};
    MainWindow window{windowModel, appearance};
};

TEST_F(AdminWindowTest, KeepEditingKeepsEverything)
{
    auto* question = window.findChild<QuestionDialog*>();
    ASSERT_NE(question, nullptr);
    EXPECT_EQ(question->yesButton()->title(), u"Discard"_s);
    EXPECT_EQ(question->noButton()->title(), u"Keep Editing"_s);
    click(question->noButton());
    EXPECT_EQ(named<QLineEdit>(window, u"Name"_s)->text(), u"Harbor"_s);
    EXPECT_EQ(shownEmail(), u"desk@harbor.example.org"_s);
    EXPECT_EQ(selectedRow(), 1) << "the row stays with its pane";
}

TEST_F(AdminWindowTest, DiscardGoesOn)
{
    click(window.findChild<QuestionDialog*>()->yesButton());
    EXPECT_EQ(shownEmail(), u"noor@example.com"_s);
    EXPECT_EQ(selectedRow(), 2);
}

} // namespace
