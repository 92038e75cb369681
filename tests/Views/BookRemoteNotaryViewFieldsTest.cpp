#include "BookRemoteNotaryViewTest.h"
#include "Components/ComboBox.h"
#include "Components/DateField.h"
#include "Components/DateTimeField.h"
#include "Components/OptionCard.h"
#include "Components/Stepper.h"
#include "Components/Switch.h"
#include "Screen/NewYorkTime.h"
#include "Screens/Cases.h"

#include <QLineEdit>
#include <QPlainTextEdit>

using namespace Qt::StringLiterals;
using Model = BookRemoteNotaryModel;

namespace {

class BookRemoteNotaryViewFields : public BookRemoteNotaryViewTest
{
protected:
    DateTimeField* appointment() const { return named<DateTimeField>(u"Preferred Date & Time"_s); }
};

struct TextRow
{
    std::string name;
    QString caption;
    QProperty<QString> Model::*property;
    bool isContact = false;
};

class BookRemoteNotaryViewText : public BookRemoteNotaryViewTest, public testing::WithParamInterface<TextRow>
{
protected:
    QWidget* field() const
    {
        const TextRow& row = GetParam();
        return row.isContact ? named(row.caption, contact()) : named(row.caption);
    }
    static QString textOf(QWidget* field)
    {
        if (auto* editor = qobject_cast<QPlainTextEdit*>(field))
            return editor->toPlainText();
        return qobject_cast<QLineEdit*>(field)->text();
    }
    QProperty<QString>& property() const { return (*model).*GetParam().property; }
};

struct SwitchRow
{
    std::string name;
    QString label;
    QProperty<bool> Model::*property;
};

class BookRemoteNotaryViewSwitch : public BookRemoteNotaryViewTest,
                                   public testing::WithParamInterface<SwitchRow>
{ };

} // namespace

TEST_P(BookRemoteNotaryViewText, IsTypedIntoTheModelAndShownFromIt)
{
    show();
    type(field(), u"a < b & \"c\""_s);
    EXPECT_EQ(property().value(), u"a < b & \"c\""_s);
    property() = u"<b>set</b>"_s;
    EXPECT_EQ(textOf(field()), u"<b>set</b>"_s);
}

INSTANTIATE_TEST_SUITE_P(Fields, BookRemoteNotaryViewText,
    testing::Values(TextRow{"ContactName", u"Name"_s, &Model::contactName, true},
        TextRow{"ContactEmail", u"Email"_s, &Model::contactEmail, true},
        TextRow{"ContactPhone", u"Phone"_s, &Model::contactPhone, true},
        TextRow{"Details", u"What needs to be notarized?"_s, &Model::details},
        TextRow{"Notes", u"Additional Notes"_s, &Model::notes}),
    ByName());

TEST_P(BookRemoteNotaryViewSwitch, FollowsTheModelAndSetsIt)
{
    show();
    QProperty<bool>& property = (*model).*GetParam().property;
    auto* control = named<Switch>(GetParam().label);
    EXPECT_FALSE(control->isChecked());
    click(control);
    EXPECT_TRUE(property.value());
    property = false;
    EXPECT_FALSE(control->isChecked());
    EXPECT_EQ(accessible(control)->role(), QAccessible::CheckBox);
}

INSTANTIATE_TEST_SUITE_P(Switches, BookRemoteNotaryViewSwitch,
    testing::Values(SwitchRow{"Asap", u"ASAP, earliest available"_s, &Model::asap},
        SwitchRow{"Unknown", u"Unknown"_s, &Model::actUnknown},
        SwitchRow{"Witness", u"Witness Required"_s, &Model::witnessRequired},
        SwitchRow{"Apostille", u"Apostille Needed"_s, &Model::apostilleNeeded}),
    ByName());

TEST_F(BookRemoteNotaryViewFields, ShowsEveryTextOfTheForm)
{
    show();
    const QList<QString> texts{
        u"Remote Notary"_s,
        u"Book a Session"_s,
        u"Contact Information"_s,
        u"Use the primary signer or client contact for scheduling updates."_s,
        u"Billing / Document Retrieval"_s,
        u"Preferred Date & Time"_s,
        u"Choose ASAP or schedule a future appointment time."_s,
        u"Past dates and times are blocked."_s,
        u"Estimated Notary Fee"_s,
        u"$15.00"_s,
        u"No-rush estimate based on the number of signatures."_s,
        u"Number of Signatures: 1"_s,
        u"Document Details"_s,
        u"Tell us what needs to be notarized before the session is reviewed."_s,
        u"Document Type"_s,
        u"What needs to be notarized?"_s,
        u"Signers"_s,
        u"Signer 1"_s,
        u"ID Type"_s,
        u"ID Expiration"_s,
        u"Additional Notes"_s,
        u"Upload Documents"_s,
        u"Add files now and they will upload automatically into the session after the booking is created."_s,
        u"Drop files for this booking"_s,
        u"PDFs, images, Word files, Excel files, and common office documents can be attached before submission."_s,
        u"No desktop file-count limit. Your server controls maximum upload size."_s,
        u"We will review the request and update the session status as it moves through the remote notary "
        "workflow."_s,
    };
    for (const QString& text : texts)
        EXPECT_TRUE(shows(text)) << qUtf8Printable(text);
}

TEST_F(BookRemoteNotaryViewFields, BillingIsAGroupOfTwoRadioButtons)
{
    show();
    QWidget* group = named(u"Billing / Document Retrieval"_s);
    EXPECT_EQ(accessible(group)->role(), QAccessible::Grouping);
    auto* noRush = named<OptionCard>(u"No-Rush Document Retrieval"_s, group);
    auto* rush = named<OptionCard>(u"Priority Document Retrieval (Rush)"_s, group);
    EXPECT_EQ(rush->accessibleDescription(),
        u"Priority Document Retrieval: $25 initial signature + $8 each additional signature."_s);
    EXPECT_TRUE(noRush->isChecked());
    click(rush);
    EXPECT_EQ(model->documentRetrievalOption.value(), u"priority"_s);
    EXPECT_FALSE(noRush->isChecked());
    EXPECT_TRUE(shows(u"$25.00"_s));
    EXPECT_TRUE(shows(u"Rush estimate based on the number of signatures."_s));
    model->documentRetrievalOption = u"no_rush"_s;
    EXPECT_TRUE(noRush->isChecked());
}

TEST_F(BookRemoteNotaryViewFields, TheFeeFollowsTheNumberOfSignatures)
{
    show();
    model->documentRetrievalOption = u"priority"_s;
    auto* count = named<Stepper>(u"Number of Signatures"_s);
    EXPECT_EQ(accessible(count)->role(), QAccessible::SpinBox);
    count->setFocus();
    press(Qt::Key_Up);
    press(Qt::Key_Up);
    EXPECT_EQ(model->actCount.value(), 3);
    EXPECT_TRUE(shows(u"Number of Signatures: 3"_s));
    EXPECT_TRUE(shows(u"$41.00"_s));
    press(Qt::Key_End);
    EXPECT_EQ(model->actCount.value(), 25);
    press(Qt::Key_Up);
    EXPECT_EQ(model->actCount.value(), 25);
}

TEST_F(BookRemoteNotaryViewFields, AnUnknownNumberOfSignaturesKeepsTheCount)
{
    show();
    model->actCount = 3;
    click(named(u"Unknown"_s));
    EXPECT_TRUE(shows(u"Number of Signatures: Unknown"_s));
    EXPECT_FALSE(named(u"Number of Signatures"_s)->isEnabled());
    EXPECT_TRUE(shows(u"$45.00"_s));
    click(named(u"Unknown"_s));
    EXPECT_TRUE(shows(u"Number of Signatures: 3"_s));
    EXPECT_TRUE(named(u"Number of Signatures"_s)->isEnabled());
}

TEST_F(BookRemoteNotaryViewFields, TheDocumentTypeIsPickedFromItsList)
{
    show();
    auto* type = named<ComboBox>(u"Document Type"_s);
    ASSERT_EQ(type->count(), Model::documentTypes().size());
    for (int index = 0; index < type->count(); ++index)
        EXPECT_EQ(type->itemText(index), Model::documentTypes().at(index));
    type->setFocus();
    press(Qt::Key_Down);
    EXPECT_EQ(model->documentType.value(), u"Jurat / Affidavit"_s);
    model->documentType = u"Other"_s;
    EXPECT_EQ(type->currentText(), u"Other"_s);
}

TEST_F(BookRemoteNotaryViewFields, TheAppointmentIsHiddenWhileAsapIsOn)
{
    show();
    auto* picker = appointment();
    click(named(u"ASAP, earliest available"_s));
    EXPECT_FALSE(picker->isVisible());
    EXPECT_FALSE(shows(u"Past dates and times are blocked."_s));
    click(named(u"ASAP, earliest available"_s));
    EXPECT_TRUE(picker->isVisible());
}

TEST_F(BookRemoteNotaryViewFields, TheAppointmentIsPickedInLocalTime)
{
    show();
    model->scheduledDate = now.addDays(2);
    auto* picker = appointment();
    EXPECT_EQ(picker->value(), now.addDays(2));
    picker->setFocus();
    picker->setCurrentSection(QDateTimeEdit::HourSection);
    press(Qt::Key_Up);
    EXPECT_EQ(model->scheduledDate.value(), now.addDays(2).addSecs(3600));
}

TEST_F(BookRemoteNotaryViewFields, NewYorkTimeStandsBesideAnotherZones)
{
    show();
    model->scheduledDate = QDateTime(QDate(2026, 3, 12), QTime(18, 30), Qt::UTC);
    const QString beside = NewYorkTime::besideLocal(model->scheduledDate.value());
    ASSERT_FALSE(beside.isEmpty());
    EXPECT_TRUE(shows(beside));
}

TEST_F(BookRemoteNotaryViewFields, AMomentThatHasPassedIsShownUntilThePersonComesToIt)
{
    model->scheduledDate = now.addSecs(-3600);
    show();
    auto* picker = appointment();
    EXPECT_EQ(picker->value(), now.addSecs(-3600));
    EXPECT_EQ(model->scheduledDate.value(), now.addSecs(-3600));
    picker->setFocus();
    EXPECT_EQ(picker->value(), now);
    EXPECT_EQ(model->scheduledDate.value(), now);
}

TEST_F(BookRemoteNotaryViewFields, NoMomentBeforeNowCanBeChosen)
{
    show();
    model->scheduledDate = now.addDays(3);
    now = now.addDays(1);
    auto* picker = appointment();
    picker->setFocus();
    picker->setCurrentSection(QDateTimeEdit::DaySection);
    for (int press_ = 0; press_ < 5; ++press_)
        press(Qt::Key_Down);
    EXPECT_GE(model->scheduledDate.value(), now);
}

TEST_F(BookRemoteNotaryViewFields, ReturnInAFieldDoesNotSubmit)
{
    show();
    fillIn();
    for (QWidget* field : {named(u"Name"_s, contact()), named(u"Email"_s, signer(1)),
             named(u"Preferred Date & Time"_s), named(u"ID Expiration"_s, signer(1))}) {
        field->setFocus();
        press(Qt::Key_Return);
        press(Qt::Key_Enter);
    }
    EXPECT_EQ(requestCount(), 1);
    EXPECT_FALSE(model->isSubmitting.value());
}

TEST_F(BookRemoteNotaryViewFields, TheRoleDecidesTheTexts)
{
    show();
    EXPECT_TRUE(shows(u"Request a remote online notarization with signer details, billing option, and "
                      "preferred time."_s));
    auth.activeRole = AppRole::business;
    EXPECT_TRUE(shows(u"Schedule a remote notarization for a client with signer details, billing option, and "
                      "preferred time."_s));
    EXPECT_TRUE(shows(u"Client Information"_s));
    named(u"Client Information"_s);
    auth.activeRole = AppRole::client;
    EXPECT_TRUE(shows(u"Contact Information"_s));
}

TEST_F(BookRemoteNotaryViewFields, ThePrefillIsShown)
{
    window.setScreen(view = new BookRemoteNotaryView(model));
    window.resize(960, 728);
    window.show();
    settle();
    EXPECT_EQ(named<QLineEdit>(u"Email"_s, contact())->text(), u"maya.whitfield@example.com"_s);
    EXPECT_EQ(named<QLineEdit>(u"Name"_s, signer(1))->text(), u"Maya Whitfield"_s);
    answer(0, R"({"user":{"phone":"(555) 010-0142"}})");
    EXPECT_EQ(named<QLineEdit>(u"Phone"_s, contact())->text(), u"(555) 010-0142"_s);
    EXPECT_EQ(named<QLineEdit>(u"Phone"_s, signer(1))->text(), u"(555) 010-0142"_s);
}
