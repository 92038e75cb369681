#include "ComponentsTest.h"

#include "Components/ComboBox.h"
#include "Components/ListRowDelegate.h"
#include "Components/OptionCard.h"
#include "Components/PrimaryButton.h"
#include "Components/RowList.h"
#include "Components/SearchField.h"
#include "Components/SegmentedControl.h"
#include "Components/SidebarEntry.h"
#include "Components/Stepper.h"
#include "Components/Switch.h"
#include "Components/TextEditor.h"
#include "Components/TextField.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QStringListModel>
#include <QWheelEvent>

using namespace Qt::StringLiterals;

namespace {

class ComponentsKeyboard : public ComponentsTest
{
protected:
    static void turnWheel(QWidget* widget)
    {
        const QPointF spot = widget->rect().center();
        QWheelEvent event(spot, widget->mapToGlobal(spot), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
            Qt::NoScrollPhase, false);
        QApplication::sendEvent(widget, &event);
    }
};

} // namespace

TEST_F(ComponentsKeyboard, SpaceTurnsASwitchAndSoDoesAClickOnItsLabel)
{
    auto* control = shown(new Switch(u"Witness Required"_s));
    QSignalSpy changes(control, &Switch::valueChanged);
    control->setFocus(Qt::TabFocusReason);
    QTest::keyClick(control, Qt::Key_Space);
    EXPECT_TRUE(control->value());
    QTest::mouseClick(control, Qt::LeftButton, {}, {control->width() - 2, control->height() / 2});
    EXPECT_FALSE(control->value());
    EXPECT_EQ(changes.size(), 2);
}

TEST_F(ComponentsKeyboard, TheRingOfASwitchEnclosesItsTrackAlone)
{
    auto* control = shown(new Switch(u"Witness Required"_s));
    control->setFocus(Qt::TabFocusReason);
    ASSERT_NE(ring(), nullptr);
    EXPECT_EQ(ring()->size(), QSize(48, 32));
}

TEST_F(ComponentsKeyboard, ArrowsMoveTheChoiceOfASegmentedControl)
{
    auto* control = shown(new SegmentedControl(
        u"Appearance"_s, {{u"Light"_s, u"light"_s}, {u"Dark"_s, u"dark"_s}, {u"System"_s, u"system"_s}}));
    control->setValue(u"light"_s);
    QSignalSpy changes(control, &SegmentedControl::valueChanged);
    control->findChildren<QRadioButton*>().at(0)->setFocus(Qt::TabFocusReason);
    QTest::keyClick(window.focusWidget(), Qt::Key_Right);
    EXPECT_EQ(control->value(), u"dark"_s);
    QTest::keyClick(window.focusWidget(), Qt::Key_Right);
    QTest::keyClick(window.focusWidget(), Qt::Key_Left);
    EXPECT_EQ(control->value(), u"dark"_s);
    EXPECT_EQ(changes.size(), 3);
    ASSERT_NE(ring(), nullptr);
    EXPECT_EQ(ring()->widget(), control);
}

TEST_F(ComponentsKeyboard, ASegmentedControlIsOneStopForTab)
{
    auto* control = new SegmentedControl(u"Mode"_s, {{u"A"_s, u"a"_s}, {u"B"_s, u"b"_s}, {u"C"_s, u"c"_s}});
    auto* after = new PrimaryButton(u"Save"_s);
    control->setValue(u"b"_s);
    show({control, after});
    control->findChildren<QRadioButton*>().at(1)->setFocus(Qt::TabFocusReason);
    QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
    EXPECT_TRUE(after->hasFocus());
}

TEST_F(ComponentsKeyboard, ArrowsMoveBetweenOptions)
{
    auto* first = new OptionCard(u"No-Rush"_s, u"May be delayed."_s);
    auto* second = new OptionCard(u"Rush"_s, u"At once."_s);
    show({first, second});
    first->setChecked(true);
    first->setFocus(Qt::TabFocusReason);
    QTest::keyClick(first, Qt::Key_Down);
    EXPECT_TRUE(second->isChecked());
    EXPECT_FALSE(first->isChecked());
    QTest::mouseClick(first, Qt::LeftButton, {}, {first->width() - 2, 2});
    EXPECT_TRUE(first->isChecked());
}

TEST_F(ComponentsKeyboard, KeysStepAStepperWithinItsRange)
{
    auto* stepper = shown(new Stepper(u"Number of Signatures"_s, 1, 4));
    stepper->setFocus(Qt::TabFocusReason);
    const auto press = [stepper](Qt::Key key) {
        QTest::keyClick(stepper, key);
        return stepper->value();
    };
    EXPECT_EQ(press(Qt::Key_Up), 2);
    EXPECT_EQ(press(Qt::Key_Right), 3);
    EXPECT_EQ(press(Qt::Key_Plus), 4);
    EXPECT_EQ(press(Qt::Key_Up), 4);
    EXPECT_EQ(press(Qt::Key_Down), 3);
    EXPECT_EQ(press(Qt::Key_Left), 2);
    EXPECT_EQ(press(Qt::Key_Minus), 1);
    EXPECT_EQ(press(Qt::Key_Minus), 1);
    EXPECT_EQ(press(Qt::Key_End), 4);
    EXPECT_EQ(press(Qt::Key_Home), 1);
    EXPECT_EQ(press(Qt::Key_3), 1);
}

TEST_F(ComponentsKeyboard, TheHalvesOfAStepperAreMinusAndPlus)
{
    auto* stepper = shown(new Stepper(u"Number of Signatures"_s, 1, 4));
    EXPECT_EQ(stepper->size(), QSize(82, 36));
    QTest::mouseClick(stepper, Qt::LeftButton, {}, {60, 18});
    EXPECT_EQ(stepper->value(), 2);
    QTest::mouseClick(stepper, Qt::LeftButton, {}, {20, 18});
    EXPECT_EQ(stepper->value(), 1);
}

TEST_F(ComponentsKeyboard, ThePickerIsWorkedWithKeys)
{
    auto* box = shown(new ComboBox({{u"One"_s, u"1"_s}, {u"Two"_s, u"2"_s}, {u"Three"_s, u"3"_s}}));
    box->setPrompt(u"Select"_s);
    EXPECT_EQ(box->value(), QString());
    box->setFocus(Qt::TabFocusReason);
    QTest::keyClick(box, Qt::Key_Down);
    EXPECT_EQ(box->value(), u"1"_s);
    QTest::keyClick(box, Qt::Key_Space);
    ASSERT_TRUE(box->view()->isVisible());
    QTest::keyClick(box->view(), Qt::Key_Down);
    QTest::keyClick(box->view(), Qt::Key_Return);
    EXPECT_EQ(box->value(), u"2"_s);
    EXPECT_FALSE(box->view()->isVisible());
    QTest::keyClick(box, Qt::Key_Space);
    QTest::keyClick(box->view(), Qt::Key_Down);
    QTest::keyClick(box->view(), Qt::Key_Escape);
    EXPECT_EQ(box->value(), u"2"_s);
}

/// The pointer leaves the box while its list is open, when no event says so.
TEST_F(ComponentsKeyboard, APickerKnowsWhetherThePointerIsOverItWhenItsListHasClosed)
{
    auto* box = shown(new ComboBox({{u"One"_s, u"1"_s}, {u"Two"_s, u"2"_s}, {u"Three"_s, u"3"_s}}));
    for (const bool isOver : {false, true}) {
        box->showPopup();
        QTest::mouseMove(
            &window, isOver ? box->geometry().center() : box->geometry().bottomLeft() + QPoint(0, 300));
        box->setAttribute(Qt::WA_UnderMouse, !isOver);
        QTest::keyClick(box->view(), Qt::Key_Escape);
        EXPECT_EQ(box->underMouse(), isOver);
    }
}

TEST_F(ComponentsKeyboard, NewOptionsKeepTheChoiceWhereTheyCan)
{
    ComboBox box({{u"One"_s, u"1"_s}, {u"Two"_s, u"2"_s}});
    box.setValue(u"2"_s);
    QSignalSpy changes(&box, &ComboBox::valueChanged);
    box.setOptions({{u"Two!"_s, u"2"_s}, {u"Three"_s, u"3"_s}});
    EXPECT_EQ(box.currentText(), u"Two!"_s);
    box.setOptions({{u"Three"_s, u"3"_s}});
    EXPECT_EQ(box.currentIndex(), -1);
    box.setOptions({{u"Three"_s, u"3"_s}, {u"Two again"_s, u"2"_s}});
    EXPECT_EQ(box.currentText(), u"Two again"_s);
    EXPECT_EQ(changes.size(), 0);
}

TEST_F(ComponentsKeyboard, TheWheelNeverChangesAValue)
{
    auto* box = new ComboBox({{u"One"_s, u"1"_s}, {u"Two"_s, u"2"_s}});
    auto* stepper = new Stepper(u"Signatures"_s, 1, 9);
    show({box, stepper});
    box->setValue(u"1"_s);
    stepper->setValue(5);
    turnWheel(box);
    turnWheel(stepper);
    EXPECT_EQ(box->value(), u"1"_s);
    EXPECT_EQ(stepper->value(), 5);
}

TEST_F(ComponentsKeyboard, TabLeavesAnEditor)
{
    auto* editor = new TextEditor(u"Notes"_s);
    auto* after = new PrimaryButton(u"Save"_s);
    show({editor, after});
    editor->edit()->setFocus(Qt::TabFocusReason);
    QTest::keyClicks(editor->edit(), u"two"_s);
    QTest::keyClick(editor->edit(), Qt::Key_Return);
    QTest::keyClick(editor->edit(), Qt::Key_Tab);
    EXPECT_EQ(editor->text(), u"two\n"_s);
    EXPECT_TRUE(after->hasFocus());
}

TEST_F(ComponentsKeyboard, AnEditorPastesMarkupAsItStands)
{
    TextEditor editor(u"Notes"_s);
    editor.setText(u"<b>x</b>"_s);
    EXPECT_EQ(editor.text(), u"<b>x</b>"_s);
}

TEST_F(ComponentsKeyboard, EscapeEmptiesASearch)
{
    auto* field = shown(new SearchField(u"Search name"_s));
    QSignalSpy changes(field, &SearchField::valueChanged);
    QTest::keyClicks(field, u"ab"_s);
    QTest::keyClick(field, Qt::Key_Escape);
    EXPECT_EQ(field->value(), QString());
    EXPECT_EQ(changes.size(), 3);
}

TEST_F(ComponentsKeyboard, ReturnInAFieldIsToldToItsForm)
{
    auto* field = shown(new TextField(u"Email"_s));
    QSignalSpy returns(field, &TextField::returnPressed);
    QTest::keyClick(field->lineEdit(), Qt::Key_Return);
    EXPECT_EQ(returns.size(), 1);
}

TEST_F(ComponentsKeyboard, ASidebarEntryAsksAndDoesNotSelectItself)
{
    auto* entry = shown(new SidebarEntry(u"Sessions"_s, u"doc.text.magnifyingglass"_s));
    QSignalSpy clicks(entry, &QAbstractButton::clicked);
    QTest::mouseClick(entry, Qt::LeftButton);
    QTest::keyClick(entry, Qt::Key_Space);
    QTest::keyClick(entry, Qt::Key_Return);
    EXPECT_EQ(clicks.size(), 3);
    EXPECT_FALSE(entry->isChecked());
}

TEST_F(ComponentsKeyboard, ArrowsSelectRowsAndReturnOpensThem)
{
    QStringListModel rows({u"Ada"_s, u"Grace"_s, u"Edsger"_s});
    auto* list = shown(new RowList(
        u"Sessions"_s, [](const QModelIndex& row) { return ListRow{.title = row.data().toString()}; }, {}));
    list->setModel(&rows);
    EXPECT_EQ(accessibleName(list), u"Sessions"_s);
    EXPECT_EQ(accessible(list)->childCount(), 3);
    QSignalSpy opened(list, &QAbstractItemView::activated);
    list->setFocus(Qt::TabFocusReason);
    EXPECT_EQ(list->currentIndex().row(), 0);
    QTest::keyClick(list, Qt::Key_Down);
    EXPECT_EQ(list->selectionModel()->selectedRows().value(0).row(), 1);
    QTest::keyClick(list, Qt::Key_End);
    EXPECT_EQ(list->currentIndex().row(), 2);
    QTest::keyClick(list, Qt::Key_Return);
    ASSERT_EQ(opened.size(), 1);
    EXPECT_EQ(opened[0][0].toModelIndex().row(), 2);
    list->setModel(nullptr);
    EXPECT_FALSE(list->currentIndex().isValid());
}

TEST_F(ComponentsKeyboard, AFieldThatIsLeftShowsItsTextFromTheBeginning)
{
    auto* first = new TextField(u"City"_s);
    auto* second = new TextField(u"State"_s);
    show({first, second});
    first->lineEdit()->setFocus(Qt::TabFocusReason);
    QTest::keyClicks(first->lineEdit(), u"A long name"_s);
    QApplication::setActiveWindow(nullptr);
    QApplication::setActiveWindow(&window);
    EXPECT_EQ(first->lineEdit()->cursorPosition(), 11) << "back from another window one types on";
    QTest::keyClick(first->lineEdit(), Qt::Key_Tab);
    ASSERT_TRUE(second->lineEdit()->hasFocus());
    EXPECT_EQ(first->lineEdit()->cursorPosition(), 0);
}
