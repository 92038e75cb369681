#include "SessionDetailViewTest.h"

#include "Components/ComboBox.h"
#include "Components/PlainLabel.h"
#include "Components/StatusPill.h"
#include "Components/Switch.h"
#include "Launch.h"
#include "Layouts.h"
#include "Screens/Cases.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollBar>

using namespace Qt::StringLiterals;

bool SessionDetailViewTest::shows(const QString& text)
{
    for (const auto* label : view->findChildren<PlainLabel*>()) {
        if (label->isVisible() && label->text() == text)
            return true;
    }
    return false;
}

void SessionDetailViewTest::type(QWidget* field, const QString& text)
{
    ASSERT_NE(field, nullptr);
    field->setFocus();
    QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(field, Qt::Key_Delete);
    QTest::keyClicks(field, text);
}

TEST_F(SessionDetailViewTest, SaysThatItLoads)
{
    open();
    EXPECT_EQ(line(0), u"GET /remote-notary/sessions/7"_s);
    EXPECT_TRUE(shows(u"Loading session..."_s));
    answer(0, scheduled);
    EXPECT_FALSE(shows(u"Loading session..."_s));
    EXPECT_EQ(line(1), u"GET /remote-notary/sessions/7/messages"_s);
}

TEST_F(SessionDetailViewTest, SaysThatASessionCouldNotBeLoadedAndTriesAgain)
{
    open();
    fail(0);
    ASSERT_NE(alert(), nullptr);
    EXPECT_EQ(alert()->title(), u"Cannot Load Session"_s);
    QTest::keyClick(alert()->okButton(), Qt::Key_Return);
    finishClosing();
    EXPECT_TRUE(shows(u"Session Not Found"_s));
    EXPECT_TRUE(shows(u"The selected session could not be loaded."_s));
    click(control(u"Try Again"_s));
    EXPECT_TRUE(shows(u"Loading session..."_s));
    answerLoad();
    EXPECT_TRUE(shows(u"Priya Raman, Tomas Alder"_s));
    EXPECT_EQ(alert(), nullptr);
}

TEST_F(SessionDetailViewTest, ShowsWhatIsKnownAboutTheSession)
{
    openLoaded();
    for (const QString& text : {u"RN-20260309-0131"_s, u"Priya Raman, Tomas Alder"_s, u"2026-03-12 2:30 PM"_s,
             u"Power of Attorney"_s, u"Priya Raman"_s, u"priya.raman@example.com"_s,
             u"Assigned Notary: Maya Whitfield"_s, u"Witness Required: Elena Voss, joins on her own link"_s})
        EXPECT_TRUE(shows(text)) << text.toStdString();
    EXPECT_EQ(view->findChild<StatusPill*>()->text(), u"Scheduled"_s);
}

TEST_F(SessionDetailViewTest, LeavesOutWhatIsNotKnown)
{
    openLoaded({600, 700}, R"({"id": 7, "status": "completed"})");
    EXPECT_TRUE(shows(u"Date pending"_s));
    EXPECT_TRUE(shows(u"Remote notary session"_s));
    EXPECT_TRUE(shows(u"Assigned Notary: Not Assigned"_s));
    EXPECT_TRUE(shows(u"No Witness Required"_s));
    EXPECT_EQ(cancelButton(), nullptr);
}

TEST_F(SessionDetailViewTest, ShowsTextsFromOutsideAsTheyStand)
{
    openLoaded({600, 700}, R"({"id": 7, "client_name": "<b>Tomas</b> & Sons", "document_type": "a < b"})");
    EXPECT_TRUE(shows(u"<b>Tomas</b> & Sons"_s));
    EXPECT_TRUE(shows(u"a < b"_s));
}

TEST_F(SessionDetailViewTest, TheThreadAndTheDocumentsCanBeWorkedWithWhateverBecomesOfTheirLoad)
{
    open();
    answer(0, scheduled);
    EXPECT_TRUE(shows(u"Loading messages..."_s));
    EXPECT_TRUE(shows(u"Loading files..."_s));
    answer(1, "{}", 500);
    EXPECT_EQ(alert()->title(), u"Cannot Load Session"_s);
    QTest::keyClick(alert()->okButton(), Qt::Key_Return);
    finishClosing();
    EXPECT_TRUE(shows(u"The messages could not be loaded."_s));
    EXPECT_TRUE(shows(u"The files could not be loaded."_s));
    EXPECT_FALSE(shows(u"No messages yet."_s)) << "nobody knows";
    EXPECT_FALSE(shows(u"No files have been uploaded into this session yet."_s));
    for (const QString& name : {u"New Message"_s, u"Send Message"_s, u"Drop session files here"_s,
             u"Choose Files for This Session"_s, u"Upload Files to Session"_s})
        EXPECT_NE(control(name), nullptr) << name.toStdString();

    click(control(u"Try Again to Load the Files"_s));
    EXPECT_EQ(line(2), u"GET /remote-notary/sessions/7/documents"_s);
    EXPECT_TRUE(shows(u"Loading files..."_s));
    answer(2, "[]");
    EXPECT_TRUE(shows(u"No files have been uploaded into this session yet."_s));
    EXPECT_EQ(control(u"Try Again to Load the Files"_s), nullptr);
    click(control(u"Try Again to Load the Messages"_s));
    EXPECT_EQ(line(3), u"GET /remote-notary/sessions/7/messages"_s);
    answer(3, "[]");
    EXPECT_TRUE(shows(u"No messages yet."_s));
    EXPECT_EQ(control(u"Try Again to Load the Messages"_s), nullptr);
}

struct Cards
{
    const char* name;
    QList<AppRole> roles;
    AppRole active;
    bool notary;
    bool admin;
};

class SessionDetailViewRoles : public SessionDetailViewTest, public testing::WithParamInterface<Cards>
{ };

TEST_P(SessionDetailViewRoles, SeeTheirControls)
{
    replaceUser(account(u"someone"_s, GetParam().roles), GetParam().active);
    openLoaded();
    EXPECT_EQ(notaryCard() != nullptr, GetParam().notary);
    EXPECT_EQ(saveNotary() != nullptr, GetParam().notary);
    EXPECT_EQ(adminCard() != nullptr, GetParam().admin);
    EXPECT_EQ(saveAdmin() != nullptr, GetParam().admin);
    EXPECT_EQ(deleteButton() != nullptr, GetParam().admin);
    EXPECT_NE(cancelButton(), nullptr);
}

INSTANTIATE_TEST_SUITE_P(Roles, SessionDetailViewRoles,
    testing::Values(Cards{"Client", {}, AppRole::client, false, false},
        Cards{"Business", {AppRole::business}, AppRole::business, false, false},
        Cards{"Notary", {AppRole::notary}, AppRole::notary, true, false},
        Cards{"Admin", {AppRole::admin}, AppRole::admin, false, true},
        Cards{"AdminAsClient", {AppRole::admin}, AppRole::client, false, false},
        Cards{"BothAsNotary", {AppRole::notary, AppRole::admin}, AppRole::notary, true, false},
        Cards{"BothAsAdmin", {AppRole::notary, AppRole::admin}, AppRole::admin, false, true}),
    ByName());

TEST_F(SessionDetailViewTest, TheControlsGoAlongWithTheActiveRole)
{
    openLoaded();
    EXPECT_EQ(notaryCard(), nullptr);
    auth.switchRole(AppRole::notary);
    EXPECT_EQ(adminCard(), nullptr);
    EXPECT_NE(notaryCard(), nullptr);
    auth.switchRole(AppRole::client);
    EXPECT_EQ(adminCard(), nullptr);
    EXPECT_EQ(notaryCard(), nullptr);
}

TEST_F(SessionDetailViewTest, ALostRoleTakesItsControlsAway)
{
    openLoaded();
    EXPECT_NE(adminCard(), nullptr);
    auth.user = account(u"maya"_s, {AppRole::notary});
    EXPECT_EQ(adminCard(), nullptr);
    EXPECT_NE(notaryCard(), nullptr);
}

TEST_F(SessionDetailViewTest, ANotaryFillsInEveryFieldAndSaves)
{
    workAs(AppRole::notary);
    openLoaded();
    QWidget* card = notaryCard();
    auto* status = control<ComboBox>(u"Status"_s, card);
    EXPECT_EQ(status->value(), u"scheduled"_s);
    status->setFocus();
    QTest::keyClick(status, Qt::Key_Down);
    type(control<QLineEdit>(u"Confirmed Date"_s, card), u"2026-04-01"_s);
    type(control<QLineEdit>(u"Confirmed Time"_s, card), u"9:00 AM"_s);
    type(control<QLineEdit>(u"Proposed Fee"_s, card), u"50"_s);
    type(control<QPlainTextEdit>(u"Status Note"_s, card), u" Moved. "_s);
    type(control<QLineEdit>(u"Witness Name / Notes"_s, card), u"none"_s);
    click(control<Switch>(u"Witness Required"_s, card));
    click(saveNotary());
    EXPECT_EQ(line(3), u"POST /notary/remote-notary/sessions/7/status"_s);
    EXPECT_EQ(body(3),
        object(R"({"status": "rescheduled", "confirmed_date": "2026-04-01", "confirmed_time": "9:00 AM",
            "scheduled_date": "2026-04-01", "scheduled_time": "9:00 AM", "proposed_fee": "50",
            "status_note": " Moved. ", "requires_witness": false, "witness_name": "none"})"));
    answer(3, "{}");
    EXPECT_EQ(alert()->title(), u"Saved"_s);
    EXPECT_EQ(alert()->message(), u"Notary update was saved."_s);
    answerLoad();
}

TEST_F(SessionDetailViewTest, AnAdminChoosesANotaryAndSaves)
{
    openLoaded();
    auto* notary = control<ComboBox>(u"Assigned Notary"_s, adminCard());
    EXPECT_EQ(notary->currentText(), u"Maya Whitfield"_s);
    EXPECT_EQ(notary->count(), 2);
    notary->setFocus();
    QTest::keyClick(notary, Qt::Key_Down);
    EXPECT_EQ(model->selectedNotaryId.value(), 13);
    click(saveAdmin());
    EXPECT_EQ(line(4), u"POST /admin/remote-notary/sessions/7/assign"_s);
    EXPECT_EQ(body(4).value(u"assigned_notary_id"_s).toInteger(), 13);
    answer(4, "{}");
    EXPECT_EQ(alert()->message(), u"Session was updated."_s);
    answerLoad();
}

TEST_F(SessionDetailViewTest, AWitnessIsNamedOnlyWhereOneIsRequired)
{
    workAs(AppRole::notary);
    openLoaded();
    auto* name = control<QLineEdit>(u"Witness Name / Notes"_s);
    EXPECT_TRUE(name->isEnabled());
    click(control<Switch>(u"Witness Required"_s));
    EXPECT_FALSE(name->isEnabled());
    EXPECT_EQ(name->text(), u"Elena Voss, joins on her own link"_s) << "switched on again it is there again";
    click(control<Switch>(u"Witness Required"_s));
    EXPECT_TRUE(name->isEnabled());
    EXPECT_FALSE(model->hasEdits());
}

TEST_F(SessionDetailViewTest, ALongNoteIsShownWhole)
{
    const QString sentences = u"Assigned by the office after a call with both signers. "_s.repeated(3);
    openLoaded({600, 900}, R"({"id": 7, "status_note": ")" + sentences.toUtf8() + R"("})");
    auto* note = control<QPlainTextEdit>(u"Status Note"_s);
    for (const int width : {600, 450, 760}) {
        view->resize(width, 900);
        settle();
        EXPECT_EQ(note->verticalScrollBar()->maximum(), 0) << "nothing is cut off at " << width;
    }
    const int asLoaded = note->height();
    type(note, sentences + sentences);
    EXPECT_GT(note->height(), asLoaded);
    type(note, u"Short."_s);
    EXPECT_EQ(note->height(), 56) << "two lines";
}

struct NamelessNotary
{
    const char* name;
    QByteArray fields;
    QString line;
};

class SessionDetailViewNotary : public SessionDetailViewTest,
                                public testing::WithParamInterface<NamelessNotary>
{ };

TEST_P(SessionDetailViewNotary, IsToldAboutInTheSummary)
{
    openLoaded({600, 700}, R"({"id": 7)" + GetParam().fields + "}");
    EXPECT_TRUE(shows(GetParam().line));
}

INSTANTIATE_TEST_SUITE_P(Facts, SessionDetailViewNotary,
    testing::Values(NamelessNotary{"Nobody", "", u"Assigned Notary: Not Assigned"_s},
        NamelessNotary{"Named", R"(,"assigned_notary_name":"Maya")", u"Assigned Notary: Maya"_s},
        NamelessNotary{"Nameless", R"(,"assigned_notary_id":12)", u"Assigned Notary: Name Not Known"_s},
        NamelessNotary{"Zero", R"(,"assigned_notary_id":0)", u"Assigned Notary: Not Assigned"_s},
        NamelessNotary{
            "NoWitness", R"(,"requires_witness":0,"witness_name":"Elena")", u"No Witness Required"_s},
        NamelessNotary{"SomeWitness", R"(,"requires_witness":"yes")", u"Witness Required"_s},
        NamelessNotary{
            "ThisWitness", R"(,"requires_witness":1,"witness_name":"Elena")", u"Witness Required: Elena"_s}),
    ByName());

TEST_F(SessionDetailViewTest, TheSessionsOwnStatusIsShownAlsoWhenItIsNotOffered)
{
    openLoaded({600, 700}, R"({"id": 7, "status": "confirmed"})");
    auto* status = control<ComboBox>(u"Status"_s, adminCard());
    EXPECT_EQ(status->currentText(), u"confirmed"_s);
    EXPECT_EQ(status->count(), 6);
    EXPECT_FALSE(model->hasEdits()) << "looking changes nothing";
}

TEST_F(SessionDetailViewTest, AReloadLeavesTheFieldThatIsBeingTypedIn)
{
    openLoaded();
    auto* note = control<QPlainTextEdit>(u"Status Note"_s, adminCard());
    type(note, u"Half a"_s);
    QTextCursor cursor = note->textCursor();
    cursor.setPosition(2);
    note->setTextCursor(cursor);
    launch(model->load());
    settle();
    answerLoad(R"({"id": 7, "status": "completed", "status_note": "From the bridge"})");
    EXPECT_EQ(note->toPlainText(), u"Half a"_s);
    EXPECT_EQ(note->textCursor().position(), 2);
    EXPECT_TRUE(note->hasFocus());
    EXPECT_EQ(view->findChild<StatusPill*>()->text(), u"Completed"_s);
}

// Saving, cancelling, deleting

TEST_F(SessionDetailViewTest, ADoubleClickSavesOnce)
{
    workAs(AppRole::notary);
    openLoaded();
    QTest::mouseClick(saveNotary(), Qt::LeftButton);
    QTest::mouseDClick(saveNotary(), Qt::LeftButton);
    QTest::keyClick(saveNotary(), Qt::Key_Return);
    settle();
    EXPECT_EQ(requestCount(), 4);
    EXPECT_EQ(line(3), u"POST /notary/remote-notary/sessions/7/status"_s);
}

TEST_F(SessionDetailViewTest, WhileAChangeIsOnItsWayOnlyItsButtonTurns)
{
    openLoaded();
    click(saveAdmin());
    EXPECT_TRUE(saveAdmin()->isLoading());
    EXPECT_TRUE(saveAdmin()->isEnabled());
    for (Button* other : {cancelButton(), deleteButton()}) {
        EXPECT_FALSE(other->isLoading());
        EXPECT_FALSE(other->isEnabled());
    }
    fail(4);
    EXPECT_EQ(alert()->title(), u"Cannot Save Session"_s);
    for (Button* button : {saveAdmin(), cancelButton(), deleteButton()}) {
        EXPECT_FALSE(button->isLoading());
        EXPECT_TRUE(button->isEnabled());
    }
}

struct Asked
{
    const char* name;
    QString button;
    QString title;
    QString line;
};

class SessionDetailViewQuestions : public SessionDetailViewTest, public testing::WithParamInterface<Asked>
{
protected:
    SessionDetailViewQuestions()
    {
        openLoaded();
        click(control(GetParam().button));
    }
};

TEST_P(SessionDetailViewQuestions, AreAskedBeforeAnythingHappens)
{
    ASSERT_NE(question(), nullptr);
    EXPECT_EQ(question()->title(), GetParam().title);
    EXPECT_TRUE(question()->noButton()->hasFocus());
    EXPECT_EQ(requestCount(), 4);
}

TEST_P(SessionDetailViewQuestions, DoNothingWhenTheAnswerIsNo)
{
    QTest::keyClick(question()->noButton(), Qt::Key_Escape);
    finishClosing();
    EXPECT_EQ(question(), nullptr);
    EXPECT_EQ(requestCount(), 4);
    EXPECT_EQ(model->work.value(), SessionDetailModel::Work::none);
    EXPECT_TRUE(control(GetParam().button)->hasFocus());
}

TEST_P(SessionDetailViewQuestions, DoItWhenTheAnswerIsYes)
{
    click(question()->yesButton());
    ASSERT_EQ(requestCount(), 5);
    EXPECT_EQ(line(4), GetParam().line);
    EXPECT_TRUE(control<Button>(GetParam().button)->isLoading());
    fail(4);
    EXPECT_FALSE(control<Button>(GetParam().button)->isLoading());
}

INSTANTIATE_TEST_SUITE_P(Kinds, SessionDetailViewQuestions,
    testing::Values(Asked{"Cancel", u"Cancel Session"_s, u"Cancel Session?"_s,
                        u"POST /remote-notary/sessions/7/cancel"_s},
        Asked{"Delete", u"Delete Session"_s, u"Delete Session?"_s, u"DELETE /admin/records/7"_s}),
    ByName());

TEST_F(SessionDetailViewTest, AQuestionGoesWithTheDetailThatAsksIt)
{
    QWidget window;
    window.setLayout(Layouts::column(0));
    model = std::make_shared<SessionDetailModel>(context, 7);
    view = std::make_unique<SessionDetailView>(model);
    window.layout()->addWidget(view.get());
    window.resize(600, 700);
    show(window);
    answerLoad();
    click(cancelButton());
    const QPointer dialog = window.findChild<QuestionDialog*>();
    ASSERT_FALSE(dialog.isNull());
    view.reset();
    settle();
    finishClosing();
    EXPECT_TRUE(dialog.isNull());
    EXPECT_EQ(requestCount(), 4);
}

TEST_F(SessionDetailViewTest, AfterACancellationTheSessionIsShownAsCancelled)
{
    openLoaded();
    click(cancelButton());
    click(question()->yesButton());
    answer(4, "{}");
    answerLoad(R"({"id": 7, "status": "cancelled"})");
    EXPECT_EQ(view->findChild<StatusPill*>()->text(), u"Cancelled"_s);
    EXPECT_EQ(cancelButton(), nullptr);
    EXPECT_EQ(alert(), nullptr);
}

TEST_F(SessionDetailViewTest, AViewThatGoesEndsItsLoad)
{
    open();
    view.reset();
    answer(0, scheduled);
    EXPECT_EQ(requestCount(), 1);
    EXPECT_FALSE(model->session().has_value());
}
