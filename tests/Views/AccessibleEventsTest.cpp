#include "AccessibleEventsTest.h"

#include "Components/DateField.h"
#include "Components/DateTimeField.h"
#include "Components/LabeledField.h"
#include "Components/SecureField.h"
#include "Components/SidebarEntry.h"
#include "Components/TextEditor.h"
#include "Components/TextField.h"

#include <QClipboard>
#include <QLineEdit>
#include <QListView>
#include <QPlainTextEdit>
#include <QStringListModel>

using namespace Qt::StringLiterals;

namespace {

const auto secret = u"hunter2"_s;

struct Typing
{
    std::string name;
    /// Leaves the secret in the field, or takes it away.
    void (*work)(QLineEdit* edit);
};

class AccessibleSecret : public AccessibleEventsTest, public testing::WithParamInterface<Typing>
{
protected:
    static QString everything()
    {
        QString text;
        for (const Told& told : heard())
            text += told.text;
        return text;
    }

    SecureField* field = new SecureField(u"Password"_s);
};

void type(QLineEdit* edit)
{
    QTest::keyClicks(edit, secret);
}
void erase(QLineEdit* edit)
{
    type(edit);
    QTest::keyClick(edit, Qt::Key_Backspace);
    QTest::keyClick(edit, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(edit, Qt::Key_Delete);
}
void paste(QLineEdit* edit)
{
    QApplication::clipboard()->setText(secret);
    QTest::keyClick(edit, Qt::Key_V, Qt::ControlModifier);
    QApplication::clipboard()->clear();
}
void replace(QLineEdit* edit)
{
    edit->setText(secret);
    edit->setText(secret + secret);
    edit->setText({});
}
void undo(QLineEdit* edit)
{
    erase(edit);
    edit->undo();
    edit->redo();
}
void compose(QLineEdit* edit)
{
    QInputMethodEvent event;
    event.setCommitString(secret);
    QApplication::sendEvent(edit, &event);
}
void reveal(QLineEdit* edit)
{
    edit->setEchoMode(QLineEdit::Normal);
    type(edit);
}

} // namespace

TEST_P(AccessibleSecret, IsToldAsBullets)
{
    show({field});
    field->lineEdit()->setFocus(Qt::TabFocusReason);
    GetParam().work(field->lineEdit());
    const QString told = everything();
    EXPECT_FALSE(told.isEmpty()) << "how much is typed may be told";
    for (const QChar character : secret)
        EXPECT_FALSE(told.contains(character)) << told.toStdString();
}

INSTANTIATE_TEST_SUITE_P(Ways, AccessibleSecret,
    testing::Values(Typing{"Typed", type}, Typing{"Erased", erase}, Typing{"Pasted", paste},
        Typing{"Set", replace}, Typing{"Undone", undo}, Typing{"Composed", compose},
        Typing{"Revealed", reveal}),
    ByName());

TEST_F(AccessibleEventsTest, ASecretCannotBeAskedForEither)
{
    SecureField field(u"Password"_s);
    field.setText(secret);
    field.lineEdit()->selectAll();
    QAccessibleInterface* told = accessible(field.lineEdit());
    QAccessibleTextInterface* text = told->textInterface();
    ASSERT_NE(text, nullptr);
    int start = 0;
    int end = 0;
    QString answers = text->text(0, text->characterCount()) + told->text(QAccessible::Value);
    for (const auto boundary : {QAccessible::CharBoundary, QAccessible::WordBoundary,
             QAccessible::LineBoundary, QAccessible::NoBoundary}) {
        answers += text->textAtOffset(1, boundary, &start, &end);
        answers += text->textBeforeOffset(3, boundary, &start, &end);
        answers += text->textAfterOffset(1, boundary, &start, &end);
    }
    for (const QChar character : secret)
        EXPECT_FALSE(answers.contains(character)) << answers.toStdString();
}

TEST_F(AccessibleEventsTest, WhatAnybodyMayReadIsToldAsItIs)
{
    auto* field = shown(new TextField(u"Email"_s));
    field->lineEdit()->setFocus(Qt::TabFocusReason);
    QTest::keyClicks(field->lineEdit(), u"ab"_s);
    const QList<Told> typed = heardOf(QAccessible::TextInserted);
    ASSERT_EQ(typed.size(), 2);
    EXPECT_EQ(typed[0].text + typed[1].text, u"ab"_s);
}

namespace {

struct Kind
{
    std::string name;
    QWidget* (*make)();
};

class AccessibleOrder : public AccessibleEventsTest, public testing::WithParamInterface<Kind>
{
protected:
    static bool isOfText(const Told& told)
    {
        return told.type == QAccessible::TextCaretMoved || told.type == QAccessible::TextSelectionChanged;
    }
};

QWidget* makeEmpty()
{
    return new TextField(u"Field"_s);
}
QWidget* makeFilled()
{
    auto* field = new TextField(u"Field"_s);
    field->setText(u"Priya Raman"_s);
    return field;
}
QWidget* makeConcealed()
{
    auto* field = new SecureField(u"Field"_s);
    field->setText(secret);
    return field;
}
QWidget* makeEditor()
{
    auto* field = new TextEditor(u"Field"_s);
    field->setText(u"Two lines\nof text"_s);
    return field;
}
QWidget* makeDate()
{
    return new LabeledField(u"Field"_s, new DateField);
}

} // namespace

TEST_P(AccessibleOrder, TheFocusIsToldBeforeAllElseAndNothingOnceItHasLeft)
{
    QWidget* field = GetParam().make();
    auto* next = new TextField(u"Next"_s);
    show({field, next});
    heard().clear();
    field->setFocus(Qt::TabFocusReason);
    ASSERT_FALSE(heard().isEmpty());
    EXPECT_EQ(heard().first().type, QAccessible::Focus);
    EXPECT_EQ(heard().first().name, u"Field"_s);

    heard().clear();
    next->setFocus(Qt::TabFocusReason);
    for (const Told& told : heard())
        EXPECT_FALSE(isOfText(told)) << "about " << told.name.toStdString();
}

INSTANTIATE_TEST_SUITE_P(Fields, AccessibleOrder,
    testing::Values(Kind{"Empty", makeEmpty}, Kind{"Filled", makeFilled}, Kind{"Concealed", makeConcealed},
        Kind{"Editor", makeEditor}, Kind{"Date", makeDate}),
    ByName());

TEST_F(AccessibleEventsTest, TheCaretIsToldToWhoeverMovesIt)
{
    auto* field = new TextField(u"Email"_s);
    field->setText(u"priya"_s);
    show({field});
    field->lineEdit()->setFocus(Qt::TabFocusReason);
    heard().clear();
    QTest::keyClick(field->lineEdit(), Qt::Key_Home);
    EXPECT_EQ(heardOf(QAccessible::TextCaretMoved).size(), 1);
    QTest::keyClick(field->lineEdit(), Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_FALSE(heardOf(QAccessible::TextSelectionChanged).isEmpty());
}

TEST_F(AccessibleEventsTest, AListTellsARowAsFocusedOnlyWhereItHasTheFocus)
{
    QStringListModel rows({u"Priya"_s, u"Zoë"_s});
    auto* list = new QListView;
    auto* field = new TextField(u"Email"_s);
    list->setModel(&rows);
    show({field, list});
    field->lineEdit()->setFocus();
    heard().clear();
    list->setCurrentIndex(rows.index(0));
    EXPECT_EQ(focused(), QStringList());
    list->setFocus();
    heard().clear();
    list->setCurrentIndex(rows.index(1));
    EXPECT_EQ(focused(), QStringList{u"Zoë"_s});
}

TEST_F(AccessibleEventsTest, AnEntryTellsThatItIsSelected)
{
    SidebarEntry entry(u"Sessions"_s, u"power"_s);
    entry.setChecked(true);
    ASSERT_EQ(heardOf(QAccessible::SelectionAdd).size(), 1);
    EXPECT_EQ(accessible(&entry)->text(QAccessible::Description), u"selected"_s);
    entry.setChecked(false);
    EXPECT_EQ(heardOf(QAccessible::SelectionRemove).size(), 1);
    EXPECT_EQ(accessible(&entry)->text(QAccessible::Description), QString());
}

namespace {

/// The 30th of November 2026, 4:58 in the afternoon.
class AccessibleDates : public AccessibleEventsTest
{
protected:
    AccessibleDates()
    {
        date->setValue({2026, 11, 30});
        time->setValue(QDateTime({2026, 11, 30}, {16, 58}));
        show(
            {new LabeledField(u"ID Expiration"_s, date), new LabeledField(u"Preferred Date & Time"_s, time)});
        heard().clear();
    }

    static void settle() { QApplication::processEvents(); }

    DateField* date = new DateField;
    DateTimeField* time = new DateTimeField(QTimeZone::utc());
};

} // namespace

TEST_F(AccessibleDates, TheFieldAndThenEachPartTellTheirNames)
{
    time->setFocus(Qt::TabFocusReason);
    settle();
    for (int part = 1; part < time->sectionCount(); ++part) {
        QTest::keyClick(time, Qt::Key_Right, Qt::ControlModifier);
        settle();
    }
    EXPECT_EQ(focused(),
        (QStringList{u"Preferred Date & Time"_s, u"Preferred Date & Time, month, November"_s, u"day, 30"_s,
            u"year, 2026"_s, u"hour, 4"_s, u"minute, 58"_s, u"half, PM"_s}));
}

TEST_F(AccessibleDates, AChangeTellsTheWholeDate)
{
    date->setFocus(Qt::TabFocusReason);
    settle();
    heard().clear();
    QTest::keyClick(date, Qt::Key_Up);
    settle();
    EXPECT_EQ(focused(), QStringList{u"ID Expiration"_s});
    EXPECT_EQ(accessible(date)->text(QAccessible::Value), u"Dec 30, 2026"_s);
    QTest::keyClick(date, Qt::Key_Down);
    settle();
    EXPECT_EQ(focused().size(), 1) << "the field's name is known by now";
    EXPECT_EQ(heardOf(QAccessible::ValueChanged).size(), 2);
    EXPECT_EQ(accessible(date)->text(QAccessible::Value), u"Nov 30, 2026"_s);
    QTest::keyClick(date, Qt::Key_Right, Qt::ControlModifier);
    settle();
    EXPECT_EQ(focused().last(), u"day, 30"_s);
}

TEST_F(AccessibleDates, ADateThatNobodyWorksInTellsNoPart)
{
    date->setValue({2027, 2, 28});
    settle();
    EXPECT_EQ(focused(), QStringList());
    EXPECT_EQ(accessible(date)->text(QAccessible::Value), u"Feb 28, 2027"_s);
}

TEST_F(AccessibleDates, ThePartsAreInTheField)
{
    date->setFocus(Qt::TabFocusReason);
    QAccessibleInterface* field = accessible(date);
    ASSERT_EQ(field->childCount(), 3);
    for (int place = 0; place < field->childCount(); ++place) {
        QAccessibleInterface* part = field->child(place);
        EXPECT_EQ(part->parent(), field);
        EXPECT_EQ(field->indexOfChild(part), place);
        EXPECT_EQ(part->role(), QAccessible::ListItem);
        EXPECT_EQ(part->state().focused, place == 0);
        EXPECT_TRUE(part->isValid());
    }
    EXPECT_EQ(field->textInterface()->text(0, field->textInterface()->characterCount()), u"Nov 30, 2026"_s);
    QAccessibleValueInterface* value = field->valueInterface();
    ASSERT_NE(value, nullptr);
    value->setCurrentValue(value->currentValue().toLongLong() + 24 * 60 * 60);
    EXPECT_EQ(date->value(), QDate(2026, 12, 1));
}
