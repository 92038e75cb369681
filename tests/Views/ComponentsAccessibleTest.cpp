#include "ComponentsTest.h"

#include "Components/ComboBox.h"
#include "Components/CompactStatCard.h"
#include "Components/DateField.h"
#include "Components/DateTimeField.h"
#include "Components/DropArea.h"
#include "Components/LabeledField.h"
#include "Components/MetricTile.h"
#include "Components/OptionCard.h"
#include "Components/PendingFileRow.h"
#include "Components/PlainLabel.h"
#include "Components/PrimaryButton.h"
#include "Components/ProgressBar.h"
#include "Components/SearchField.h"
#include "Components/SecureField.h"
#include "Components/SegmentedControl.h"
#include "Components/SidebarEntry.h"
#include "Components/Stepper.h"
#include "Components/Switch.h"
#include "Components/TextEditor.h"
#include "Components/TextField.h"

#include <QAbstractItemView>
#include <QAccessibleValueInterface>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRadioButton>

using namespace Qt::StringLiterals;

namespace {

const auto name = u"Date & Time"_s;

struct RoleRow
{
    std::string name;
    QAccessible::Role role;
    /// Makes the component and gives it the name. \returns the part that assistive technology speaks of.
    QWidget* (*make)(QWidget* parent);
};

class ComponentsAccessible : public testing::TestWithParam<RoleRow>
{ };

QWidget* adopt(QWidget* parent, QWidget* component, QWidget* spokenOf = nullptr)
{
    component->setParent(parent);
    return spokenOf ? spokenOf : component;
}

QWidget* makeButton(QWidget* parent)
{
    return adopt(parent, new PrimaryButton(name));
}
QWidget* makeSwitch(QWidget* parent)
{
    return adopt(parent, new Switch(name));
}
QWidget* makeOption(QWidget* parent)
{
    return adopt(parent, new OptionCard(name));
}
QWidget* makeEntry(QWidget* parent)
{
    return adopt(parent, new SidebarEntry(name, u"power"_s));
}
QWidget* makeStepper(QWidget* parent)
{
    return adopt(parent, new Stepper(name, 1, 9));
}
QWidget* makeSearch(QWidget* parent)
{
    return adopt(parent, new SearchField(name));
}
QWidget* makeProgress(QWidget* parent)
{
    return adopt(parent, new ProgressBar(name));
}
QWidget* makeLabel(QWidget* parent)
{
    return adopt(parent, new PlainLabel(name));
}
QWidget* makeMetric(QWidget* parent)
{
    return adopt(parent, new MetricTile(name, u"7"_s, u"power"_s));
}
QWidget* makeDrop(QWidget* parent)
{
    return adopt(parent, new DropArea(u"power"_s, name, {}));
}
QWidget* makeSegments(QWidget* parent)
{
    return adopt(parent, new SegmentedControl(name, {{u"A"_s, u"a"_s}}));
}
QWidget* makeField(QWidget* parent)
{
    auto* field = new TextField(name);
    return adopt(parent, field, field->lineEdit());
}
QWidget* makeSecret(QWidget* parent)
{
    auto* field = new SecureField(name);
    return adopt(parent, field, field->lineEdit());
}
QWidget* makeEditor(QWidget* parent)
{
    auto* field = new TextEditor(name);
    return adopt(parent, field, field->edit());
}
QWidget* labelled(QWidget* parent, QWidget* control)
{
    return adopt(parent, new LabeledField(name, control), control);
}
QWidget* makePicker(QWidget* parent)
{
    return labelled(parent, new ComboBox({{u"One"_s, u"1"_s}}));
}
QWidget* makeDate(QWidget* parent)
{
    return labelled(parent, new DateField);
}
QWidget* makeDateTime(QWidget* parent)
{
    return labelled(parent, new DateTimeField);
}

} // namespace

TEST_P(ComponentsAccessible, HasItsNameAndRole)
{
    QWidget parent;
    auto* component = GetParam().make(&parent);
    EXPECT_EQ(accessibleName(component), name);
    EXPECT_EQ(accessible(component)->role(), GetParam().role);
}

INSTANTIATE_TEST_SUITE_P(Kinds, ComponentsAccessible,
    testing::Values(RoleRow{"Button", QAccessible::Button, makeButton},
        RoleRow{"Switch", QAccessible::CheckBox, makeSwitch},
        RoleRow{"OptionCard", QAccessible::RadioButton, makeOption},
        RoleRow{"SidebarEntry", QAccessible::ListItem, makeEntry},
        RoleRow{"Stepper", QAccessible::SpinBox, makeStepper},
        RoleRow{"SearchField", QAccessible::EditableText, makeSearch},
        RoleRow{"ProgressBar", QAccessible::ProgressBar, makeProgress},
        RoleRow{"PlainLabel", QAccessible::StaticText, makeLabel},
        RoleRow{"MetricTile", QAccessible::Grouping, makeMetric},
        RoleRow{"DropArea", QAccessible::Grouping, makeDrop},
        RoleRow{"SegmentedControl", QAccessible::Grouping, makeSegments},
        RoleRow{"TextField", QAccessible::EditableText, makeField},
        RoleRow{"SecureField", QAccessible::EditableText, makeSecret},
        RoleRow{"TextEditor", QAccessible::EditableText, makeEditor},
        RoleRow{"ComboBox", QAccessible::ComboBox, makePicker},
        RoleRow{"DateField", QAccessible::SpinBox, makeDate},
        RoleRow{"DateTimeField", QAccessible::SpinBox, makeDateTime}),
    ByName());

TEST(ComponentsAccessibleState, ASecretIsConcealed)
{
    SecureField field(u"Password"_s);
    field.setText(u"hunter2"_s);
    auto* edit = field.lineEdit();
    EXPECT_TRUE(accessible(edit)->state().passwordEdit);
    EXPECT_NE(accessible(edit)->text(QAccessible::Value), u"hunter2"_s);
    EXPECT_EQ(field.text(), u"hunter2"_s);
}

TEST(ComponentsAccessibleState, ASwitchSaysWhetherItIsOn)
{
    Switch control(u"Witness Required"_s);
    EXPECT_TRUE(accessible(&control)->state().checkable);
    EXPECT_FALSE(accessible(&control)->state().checked);
    control.setChecked(true);
    EXPECT_TRUE(accessible(&control)->state().checked);
}

TEST(ComponentsAccessibleState, AnEntrySaysWhetherItIsSelected)
{
    SidebarEntry entry(u"Sessions"_s, u"power"_s);
    EXPECT_TRUE(accessible(&entry)->state().selectable);
    EXPECT_FALSE(accessible(&entry)->state().selected);
    entry.setChecked(true);
    EXPECT_TRUE(accessible(&entry)->state().selected);
}

TEST(ComponentsAccessibleState, AStepperTellsItsValueAndRange)
{
    Stepper stepper(u"Number of Signatures"_s, 1, 20);
    stepper.setValue(3);
    auto* value = accessible(&stepper)->valueInterface();
    ASSERT_NE(value, nullptr);
    EXPECT_EQ(value->currentValue().toInt(), 3);
    EXPECT_EQ(value->minimumValue().toInt(), 1);
    EXPECT_EQ(value->maximumValue().toInt(), 20);
    value->setCurrentValue(5);
    EXPECT_EQ(stepper.value(), 5);
}

TEST(ComponentsAccessibleState, SegmentsAreRadioButtonsNamedByTheirOptions)
{
    SegmentedControl control(u"Appearance"_s, {{u"Light"_s, u"light"_s}, {u"Dark"_s, u"dark"_s}});
    control.setValue(u"dark"_s);
    const auto segments = control.findChildren<QRadioButton*>();
    ASSERT_EQ(segments.size(), 2);
    EXPECT_EQ(accessible(segments[0])->role(), QAccessible::RadioButton);
    EXPECT_EQ(accessibleName(segments[0]), u"Light"_s);
    EXPECT_FALSE(accessible(segments[0])->state().checked);
    EXPECT_TRUE(accessible(segments[1])->state().checked);
    EXPECT_EQ(accessible(segments[1])->parent()->text(QAccessible::Name), u"Appearance"_s);
}

TEST(ComponentsAccessibleState, APickerTellsItsChoiceBesideItsName)
{
    ComboBox box({{u"One"_s, u"1"_s}, {u"Two"_s, u"2"_s}});
    box.setPrompt(u"Select"_s);
    box.setAccessibleName(u"Status"_s);
    EXPECT_EQ(accessible(&box)->text(QAccessible::Value), u"Select"_s);
    box.setValue(u"2"_s);
    EXPECT_EQ(accessibleName(&box), u"Status"_s);
    EXPECT_EQ(accessible(&box)->text(QAccessible::Value), u"Two"_s);
    EXPECT_EQ(accessible(&box)->text(QAccessible::Description), u"Two"_s);
    EXPECT_FALSE(accessible(&box)->state().expanded);
    ASSERT_EQ(accessible(&box)->childCount(), 1);
    EXPECT_EQ(accessible(&box)->child(0)->childCount(), 2);
}

TEST(ComponentsAccessibleState, AnOptionIsDescribed)
{
    OptionCard option(u"Rush"_s, u"$25 for the first signature."_s);
    EXPECT_EQ(accessible(&option)->text(QAccessible::Description), u"$25 for the first signature."_s);
}

TEST(ComponentsAccessibleState, TilesTellTheirValue)
{
    MetricTile metric(u"Users"_s, u"391"_s, u"person.3.fill"_s);
    CompactStatCard fee(u"Fee"_s, u"$41.00"_s, u"dollarsign.circle.fill"_s, u"Estimate."_s);
    EXPECT_EQ(accessible(&metric)->text(QAccessible::Value), u"391"_s);
    EXPECT_EQ(accessible(&fee)->text(QAccessible::Value), u"$41.00"_s);
    metric.setValue(u"392"_s);
    EXPECT_EQ(accessible(&metric)->text(QAccessible::Value), u"392"_s);
    EXPECT_EQ(accessible(&metric)->text(QAccessible::Description), u"392"_s);
}

TEST(ComponentsAccessibleState, ACaptionNamesItsFieldAndWhatFollowsIt)
{
    LabeledField field(u"Status"_s, new ComboBox);
    EXPECT_EQ(accessibleName(field.control()), u"Status"_s);
    field.setCaption(u"Type"_s);
    EXPECT_EQ(accessibleName(field.control()), u"Type"_s);
}

TEST(ComponentsAccessibleState, AFieldWithoutACaptionTakesANameOfItsOwn)
{
    TextField field({}, u"Write a message"_s);
    field.setFieldName(u"Message"_s);
    EXPECT_EQ(accessibleName(field.lineEdit()), u"Message"_s);
    EXPECT_EQ(field.sizeHint().height(), 36);
}

TEST(ComponentsAccessibleState, APendingFileNamesAllItsControls)
{
    PendingFileRow row(u"doc.fill"_s,
        {u"deed"_s, u"Document label"_s, u"deed.pdf"_s, u"deed"_s, u"Remove deed.pdf"_s},
        {{u"Deed"_s, u"deed"_s}});
    QStringList names;
    for (auto* control : row.findChildren<QWidget*>()) {
        if (control->focusPolicy() & Qt::TabFocus && !qobject_cast<QAbstractItemView*>(control))
            names << accessibleName(control);
    }
    EXPECT_THAT(names, testing::UnorderedElementsAre(u"Document label"_s, u"Type"_s, u"Remove deed.pdf"_s));
}
