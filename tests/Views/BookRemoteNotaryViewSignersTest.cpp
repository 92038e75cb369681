#include "BookRemoteNotaryViewTest.h"
#include "Components/ComboBox.h"
#include "Components/DateField.h"
#include "Screen/NewYorkTime.h"

#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace {

class BookRemoteNotaryViewSigners : public BookRemoteNotaryViewTest
{
protected:
    QWidget* addButton() const { return named(u"Add Signer"_s); }
    QWidget* removeButton() const { return named(u"Remove Signer"_s); }
    QString text(const QString& caption, int number) const
    {
        return named<QLineEdit>(caption, signer(number))->text();
    }
};

} // namespace

TEST_F(BookRemoteNotaryViewSigners, EveryBlockIsAGroupWithTheSameFields)
{
    show();
    model->addSigner();
    settle();
    for (const int number : {1, 2}) {
        EXPECT_EQ(accessible(signer(number))->role(), QAccessible::Grouping);
        for (const QString& caption : {u"Name"_s, u"Email"_s, u"Phone"_s, u"ID Type"_s, u"ID Expiration"_s})
            EXPECT_TRUE(named(caption, signer(number))) << qUtf8Printable(caption);
    }
}

TEST_F(BookRemoteNotaryViewSigners, FieldsGoToTheirOwnSigner)
{
    show();
    model->addSigner();
    settle();
    type(named(u"Name"_s, signer(2)), u"Tomas Alder"_s);
    type(named(u"Email"_s, signer(2)), u"tomas@example.com"_s);
    type(named(u"Phone"_s, signer(2)), u"555 0163"_s);
    named(u"ID Type"_s, signer(2))->setFocus();
    press(Qt::Key_Down);
    const SignerDraft second = model->signers().at(1);
    EXPECT_EQ(second.name, u"Tomas Alder"_s);
    EXPECT_EQ(second.email, u"tomas@example.com"_s);
    EXPECT_EQ(second.phone, u"555 0163"_s);
    EXPECT_EQ(second.idType, u"NY Driver License"_s);
    EXPECT_EQ(model->signers().at(0).name, u"Maya Whitfield"_s);
}

TEST_F(BookRemoteNotaryViewSigners, TheIdTypeStartsUnchosen)
{
    show();
    auto* type = named<ComboBox>(u"ID Type"_s, signer(1));
    EXPECT_EQ(type->currentIndex(), -1);
    EXPECT_EQ(type->placeholderText(), u"Select ID"_s);
    ASSERT_EQ(type->count(), BookRemoteNotaryModel::idTypeOptions().size());
    for (int index = 0; index < type->count(); ++index)
        EXPECT_EQ(type->itemText(index), BookRemoteNotaryModel::idTypeOptions().at(index));
}

TEST_F(BookRemoteNotaryViewSigners, TheExpirationIsTheDayThatTheBridgeIsTold)
{
    show();
    auto* expiration = named<DateField>(u"ID Expiration"_s, signer(1));
    // Just after midnight by UTC it is still the day before in New York.
    model->editSigner(0, [](SignerDraft& signer) {
        signer.idExpirationDate = QDateTime(QDate(2031, 9, 30), QTime(1, 0), Qt::UTC);
    });
    emit model->signerChanged(0);
    EXPECT_EQ(expiration->date(), QDate(2031, 9, 29));
    expiration->setFocus();
    for (const auto section : {QDateTimeEdit::DaySection, QDateTimeEdit::MonthSection}) {
        expiration->setCurrentSection(section);
        press(Qt::Key_Up);
        const QString told = NewYorkTime::dateText(model->signers().at(0).idExpirationDate);
        EXPECT_EQ(told, expiration->date().toString(Qt::ISODate));
    }
    EXPECT_EQ(expiration->date(), QDate(2031, 10, 30));
}

TEST_F(BookRemoteNotaryViewSigners, ThereAreOneToTen)
{
    show();
    EXPECT_FALSE(removeButton()->isEnabled());
    for (int number = 2; number <= BookRemoteNotaryModel::mostSigners; ++number) {
        EXPECT_TRUE(addButton()->isEnabled());
        click(addButton());
        EXPECT_TRUE(signer(number)->isAncestorOf(QApplication::focusWidget()));
        EXPECT_EQ(focused(), u"Name"_s);
    }
    EXPECT_EQ(model->signers().size(), 10);
    EXPECT_FALSE(addButton()->isEnabled());
    for (int number = 10; number > 1; --number)
        click(removeButton());
    EXPECT_EQ(model->signers().size(), 1);
    EXPECT_FALSE(removeButton()->isEnabled());
    EXPECT_TRUE(addButton()->isEnabled());
    EXPECT_TRUE(signer(1));
}

TEST_F(BookRemoteNotaryViewSigners, RemovingTheLastKeepsTheOthers)
{
    show();
    click(addButton());
    click(addButton());
    type(named(u"Name"_s, signer(1)), u"First"_s);
    type(named(u"Name"_s, signer(2)), u"Second"_s);
    click(removeButton());
    EXPECT_EQ(text(u"Name"_s, 1), u"First"_s);
    EXPECT_EQ(text(u"Name"_s, 2), u"Second"_s);
    click(addButton());
    EXPECT_EQ(text(u"Name"_s, 3), QString());
}

TEST_F(BookRemoteNotaryViewSigners, AResetFormHasOneEmptyBlock)
{
    show();
    click(addButton());
    type(named(u"Name"_s, signer(1)), u"First"_s);
    model->resetForm();
    settle();
    EXPECT_EQ(text(u"Name"_s, 1), QString());
    EXPECT_EQ(named<ComboBox>(u"ID Type"_s, signer(1))->currentIndex(), -1);
    EXPECT_EQ(model->signers().size(), 1);
}
