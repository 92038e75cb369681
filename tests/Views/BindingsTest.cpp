#include "Bindings.h"
#include "ComponentsTest.h"

#include "Components/ComboBox.h"
#include "Components/DateField.h"
#include "Components/SearchField.h"
#include "Components/SegmentedControl.h"
#include "Components/Stepper.h"
#include "Components/Switch.h"
#include "Components/TextEditor.h"
#include "Components/TextField.h"

#include <QLineEdit>

using namespace Qt::StringLiterals;

TEST(Follow, AppliesTheValueNowAndAtEachChange)
{
    QObject owner;
    QProperty<int> property{1};
    QList<int> seen;
    follow(&owner, property, [&seen](int value) { seen << value; });
    property = 2;
    property = 2;
    property = 3;
    EXPECT_EQ(seen, (QList{1, 2, 3}));
}

TEST(Follow, EndsWithItsOwner)
{
    QProperty<int> property{1};
    int calls = 0;
    {
        QObject owner;
        follow(&owner, property, [&calls](int) { ++calls; });
    }
    property = 2;
    EXPECT_EQ(calls, 1);
}

TEST(Follow, SurvivesItsProperty)
{
    QObject owner;
    int calls = 0;
    {
        QProperty<int> property{1};
        follow(&owner, property, [&calls](int) { ++calls; });
    }
    EXPECT_EQ(calls, 1);
}

TEST(Bind, KeepsATextFieldAndItsPropertyEqual)
{
    TextField field(u"Name"_s);
    QProperty<QString> property{u"Ada"_s};
    bind(&field, property);
    EXPECT_EQ(field.text(), u"Ada"_s);
    property = u"Grace"_s;
    EXPECT_EQ(field.text(), u"Grace"_s);
    EXPECT_EQ(field.lineEdit()->cursorPosition(), 0) << "a text is shown from its beginning";
    QTest::keyClick(field.lineEdit(), Qt::Key_End);
    QTest::keyClicks(field.lineEdit(), u" H"_s);
    EXPECT_EQ(property.value(), u"Grace H"_s);
}

TEST(Bind, KeepsTheCaretWhereThePersonTypes)
{
    TextField field(u"Name"_s);
    QProperty<QString> property{u"Ada"_s};
    bind(&field, property);
    field.lineEdit()->setCursorPosition(1);
    QTest::keyClicks(field.lineEdit(), u"XY"_s);
    EXPECT_EQ(property.value(), u"AXYda"_s);
    EXPECT_EQ(field.lineEdit()->cursorPosition(), 3);
}

TEST(Bind, WorksForEveryKindOfField)
{
    SearchField search(u"Search"_s);
    TextEditor editor(u"Notes"_s);
    Switch onOff(u"Witness"_s);
    Stepper stepper(u"Signatures"_s, 1, 9);
    ComboBox combo({{u"One"_s, u"1"_s}, {u"Two"_s, u"2"_s}});
    SegmentedControl segments(u"Mode"_s, {{u"A"_s, u"a"_s}, {u"B"_s, u"b"_s}});
    DateField date;
    QProperty<QString> query, notes, choice{u"1"_s}, mode{u"a"_s};
    QProperty<bool> witness{false};
    QProperty<int> count{2};
    QProperty<QDate> day{QDate(2026, 3, 12)};
    bind(&search, query);
    bind(&editor, notes);
    bind(&onOff, witness);
    bind(&stepper, count);
    bind(&combo, choice);
    bind(&segments, mode);
    bind(&date, day);

    search.setText(u"x"_s);
    editor.setText(u"y"_s);
    onOff.click();
    stepper.stepUp();
    combo.setCurrentIndex(1);
    segments.setValue(u"b"_s);
    date.setDate(QDate(2026, 4, 1));
    EXPECT_EQ(query.value(), u"x"_s);
    EXPECT_EQ(notes.value(), u"y"_s);
    EXPECT_TRUE(witness.value());
    EXPECT_EQ(count.value(), 3);
    EXPECT_EQ(choice.value(), u"2"_s);
    EXPECT_EQ(mode.value(), u"b"_s);
    EXPECT_EQ(day.value(), QDate(2026, 4, 1));

    witness = false;
    count = 7;
    choice = u"1"_s;
    mode = u"a"_s;
    EXPECT_FALSE(onOff.isChecked());
    EXPECT_EQ(stepper.value(), 7);
    EXPECT_EQ(combo.currentText(), u"One"_s);
    EXPECT_EQ(segments.value(), u"a"_s);
}

TEST(Bind, AValueThatTheFieldCannotShowIsNotLost)
{
    ComboBox combo({{u"One"_s, u"1"_s}});
    QProperty<QString> choice{u"1"_s};
    bind(&combo, choice);
    choice = u"from elsewhere"_s;
    EXPECT_EQ(combo.currentIndex(), -1);
    EXPECT_EQ(choice.value(), u"from elsewhere"_s);
}
