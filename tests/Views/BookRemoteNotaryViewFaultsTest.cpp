#include "BookRemoteNotaryViewTest.h"
#include "Components/ComboBox.h"
#include "Components/DateTimeField.h"
#include "Components/PrimaryButton.h"
#include "FaultMark.h"
#include "Screens/Cases.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollArea>

using namespace Qt::StringLiterals;

namespace {

struct FaultRow
{
    std::string name;
    /// Takes from a whole form what the fault is about.
    std::function<void(BookRemoteNotaryModel&)> spoil;
    QString sentence;
    QString part; ///< accessible name of what holds the field; empty for the whole screen
    QString field; ///< its accessible name
};

class BookRemoteNotaryViewFaults : public BookRemoteNotaryViewTest,
                                   public testing::WithParamInterface<FaultRow>
{
protected:
    /// Shows a whole form with two signers but for its fault, and submits it.
    void submitFaulty(const FaultRow& fault)
    {
        show({960, 640});
        fillIn();
        model->addSigner();
        model->editSigner(1, [](SignerDraft& signer) {
            signer.name = u"Tomas Alder"_s;
            signer.idType = u"Passport"_s;
        });
        emit model->signerChanged(1);
        fault.spoil(*model);
        settle();
        submitButton()->setFocus();
        page()->ensureWidgetVisible(submitButton());
        press(Qt::Key_Return);
        ASSERT_TRUE(alert());
        EXPECT_EQ(alert()->message(), fault.sentence);
        press(Qt::Key_Return);
        ASSERT_FALSE(alert());
    }
    QWidget* field() const
    {
        const FaultRow& fault = GetParam();
        return named(fault.field, fault.part.isEmpty() ? nullptr : named(fault.part));
    }
    /// Changes the value as a person would.
    static void edit(QWidget* field)
    {
        if (qobject_cast<ComboBox*>(field))
            QTest::keyClick(field, Qt::Key_Down);
        else if (qobject_cast<DateTimeField*>(field))
            QTest::keyClick(field, Qt::Key_Up);
        else
            QTest::keyClicks(field, u"x"_s);
        settle();
    }
    QScrollArea* page() const { return view->findChild<QScrollArea*>(); }
};

std::function<void(BookRemoteNotaryModel&)> withoutSigner(
    qsizetype index, const std::function<void(SignerDraft&)>& change)
{
    return [=](BookRemoteNotaryModel& model) {
        model.editSigner(index, change);
        emit model.signerChanged(index);
    };
}

} // namespace

TEST_P(BookRemoteNotaryViewFaults, LeadsToItsField)
{
    submitFaulty(GetParam());
    ASSERT_TRUE(field());
    EXPECT_TRUE(field()->hasFocus());
    EXPECT_EQ(field()->visibleRegion().boundingRect(), field()->rect()) << "all of it is scrolled into view";
    EXPECT_EQ(accessible(field())->text(QAccessible::Description), GetParam().sentence);
}

TEST_P(BookRemoteNotaryViewFaults, MarksTheFieldUntilItIsEdited)
{
    submitFaulty(GetParam());
    QWidget* marked = field();
    ASSERT_TRUE(marked);
    submitButton()->setFocus();
    settle();
    EXPECT_TRUE(FaultMark::isOn(marked));
    // In the middle of the leading edge, inside its outermost pixel: where only a wide edge reaches.
    const auto edge = [marked] { return marked->grab().toImage().pixelColor(1, marked->height() / 2); };
    EXPECT_EQ(edge(), QColor(0x16, 0x5c, 0xbf));
    marked->setFocus();
    edit(marked);
    submitButton()->setFocus();
    settle();
    EXPECT_FALSE(FaultMark::isOn(marked));
    EXPECT_NE(edge(), QColor(0x16, 0x5c, 0xbf));
    EXPECT_NE(accessible(marked)->text(QAccessible::Description), GetParam().sentence);
}

INSTANTIATE_TEST_SUITE_P(Fields, BookRemoteNotaryViewFaults,
    testing::Values(FaultRow{"ContactName", [](BookRemoteNotaryModel& model) { model.contactName = u" "_s; },
                        u"Enter the contact name."_s, u"Contact Information"_s, u"Name"_s},
        FaultRow{"ContactEmail", [](BookRemoteNotaryModel& model) { model.contactEmail = u"maya"_s; },
            u"Enter a valid contact email."_s, u"Contact Information"_s, u"Email"_s},
        FaultRow{"Moment",
            [](BookRemoteNotaryModel& model) {
                model.scheduledDate = model.scheduledDate.value().addDays(-3);
            },
            u"Choose a future date and time."_s, {}, u"Preferred Date & Time"_s},
        FaultRow{"Details", [](BookRemoteNotaryModel& model) { model.details = u"\n"_s; },
            u"Describe what needs to be notarized."_s, {}, u"What needs to be notarized?"_s},
        FaultRow{"NameOfFirst", withoutSigner(0, [](SignerDraft& signer) { signer.name.clear(); }),
            u"Enter each signer name."_s, u"Signer 1"_s, u"Name"_s},
        FaultRow{"NameOfSecond", withoutSigner(1, [](SignerDraft& signer) { signer.name.clear(); }),
            u"Enter each signer name."_s, u"Signer 2"_s, u"Name"_s},
        FaultRow{"IdTypeOfFirst", withoutSigner(0, [](SignerDraft& signer) { signer.idType.clear(); }),
            u"Select each signer ID type."_s, u"Signer 1"_s, u"ID Type"_s},
        FaultRow{"IdTypeOfSecond", withoutSigner(1, [](SignerDraft& signer) { signer.idType.clear(); }),
            u"Select each signer ID type."_s, u"Signer 2"_s, u"ID Type"_s}),
    ByName());

using BookRemoteNotaryViewFault = BookRemoteNotaryViewTest;

TEST_F(BookRemoteNotaryViewFault, LeavesTheFirstFieldForTheNext)
{
    show();
    fillIn();
    model->contactName = QString();
    click(submitButton());
    click(alert()->okButton());
    auto* name = named<QLineEdit>(u"Name"_s, contact());
    EXPECT_TRUE(FaultMark::isOn(name));
    // Filled in by the program, not typed: whoever changes it, the name is there now.
    model->contactName = u"Maya Whitfield"_s;
    EXPECT_FALSE(FaultMark::isOn(name));
    model->contactEmail = u"maya"_s;
    click(submitButton());
    click(alert()->okButton());
    auto* email = named<QLineEdit>(u"Email"_s, contact());
    EXPECT_TRUE(FaultMark::isOn(email));
    EXPECT_EQ(email->selectedText(), u"maya"_s) << "what is typed now replaces it";
}

TEST_F(BookRemoteNotaryViewFault, AFailureOfTheServerMarksNothing)
{
    show();
    fillIn();
    click(submitButton());
    answer(1, R"({"message":"The calendar is closed."})", 422);
    click(alert()->okButton());
    EXPECT_TRUE(submitButton()->hasFocus());
    EXPECT_TRUE(view->findChildren<FaultMark*>().isEmpty());
}

using BookRemoteNotaryViewLocked = BookRemoteNotaryViewTest;

TEST_F(BookRemoteNotaryViewLocked, NothingCanBeEditedWhileTheRequestIsOnItsWay)
{
    show({960, 4000});
    fillIn();
    attach({u"deed.pdf"_s, u"map.png"_s});
    const auto enabled = [this] {
        QStringList names;
        for (const QWidget* widget : view->findChildren<QWidget*>()) {
            const bool isControl = widget->focusPolicy() & Qt::TabFocus && !widget->focusProxy();
            if (isControl && widget->isVisible() && widget->isEnabled())
                names += widget->accessibleName();
        }
        return names;
    };
    EXPECT_GT(enabled().size(), 20);
    click(submitButton());
    EXPECT_EQ(enabled(), QStringList{u"Submit Remote Notary Request"_s});
    QTest::keyClicks(named<QLineEdit>(u"Name"_s, contact()), u"x"_s);
    EXPECT_EQ(model->contactName.value(), u"Maya Whitfield"_s);

    answer(1, R"({"id":7,"reference_id":"RN-7"})");
    EXPECT_EQ(enabled(), QStringList{u"Submit Remote Notary Request"_s}) << "nor while its files are";
    answer(2, "{}", 500);
    click(alert()->okButton());
    EXPECT_GT(enabled().size(), 20) << "the person may put right what was wrong";
}
