#include "ComponentsTest.h"

#include "Components/DestructiveButton.h"
#include "Components/IconButton.h"
#include "Components/PrimaryButton.h"
#include "Components/QuietButton.h"
#include "Components/SecondaryButton.h"

#include <QAccessibleActionInterface>

using namespace Qt::StringLiterals;

namespace {

class ComponentsButton : public ComponentsTest
{
protected:
    static void pressInEveryWay(QAbstractButton* button)
    {
        button->setFocus(Qt::TabFocusReason);
        QTest::mouseClick(button, Qt::LeftButton);
        QTest::keyClick(button, Qt::Key_Space);
        QTest::keyClick(button, Qt::Key_Return);
        QTest::keyClick(button, Qt::Key_Enter);
        button->click();
        accessible(button)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    }
};

constexpr int waysToPress = 6;

} // namespace

TEST_F(ComponentsButton, ReactsToPointerKeysAndAssistiveTechnology)
{
    for (QAbstractButton* button : std::initializer_list<QAbstractButton*>{new PrimaryButton(u"Save"_s),
             new SecondaryButton(u"Refresh"_s, u"arrow.clockwise"_s), new DestructiveButton(u"Delete"_s),
             new QuietButton(u"View All"_s), new IconButton(u"Remove"_s, u"xmark.circle.fill"_s)}) {
        shown(button);
        QSignalSpy clicks(button, &QAbstractButton::clicked);
        pressInEveryWay(button);
        EXPECT_EQ(clicks.size(), waysToPress) << qPrintable(accessibleName(button));
    }
}

TEST_F(ComponentsButton, WhileLoadingDoesNotReactAndKeepsTheFocus)
{
    auto* button = shown(new PrimaryButton(u"Save"_s, u"checkmark.circle"_s));
    button->setFocus(Qt::TabFocusReason);
    QSignalSpy clicks(button, &QAbstractButton::clicked);
    button->setLoading(true);
    pressInEveryWay(button);
    EXPECT_EQ(clicks.size(), 0);
    EXPECT_TRUE(button->isLoading());
    EXPECT_TRUE(button->isEnabled());
    EXPECT_TRUE(button->hasFocus());
    EXPECT_TRUE(accessible(button)->state().busy);

    button->setLoading(false);
    pressInEveryWay(button);
    EXPECT_EQ(clicks.size(), waysToPress);
    EXPECT_FALSE(accessible(button)->state().busy);
}

TEST_F(ComponentsButton, LoadingReplacesTheSymbolAndKeepsTheSize)
{
    auto* button = shown(new PrimaryButton(u"Save"_s, u"checkmark.circle"_s));
    const auto size = button->sizeHint();
    const auto before = button->grab().toImage();
    button->setLoading(true);
    EXPECT_EQ(button->sizeHint(), size);
    EXPECT_NE(button->grab().toImage(), before);
}

TEST_F(ComponentsButton, ADisabledOneDoesNotReact)
{
    auto* button = shown(new PrimaryButton(u"Save"_s));
    button->setEnabled(false);
    QSignalSpy clicks(button, &QAbstractButton::clicked);
    pressInEveryWay(button);
    EXPECT_EQ(clicks.size(), 0);
    EXPECT_TRUE(accessible(button)->state().disabled);
}

TEST_F(ComponentsButton, AReturnKeyHeldDownPressesOnce)
{
    auto* button = shown(new PrimaryButton(u"Save"_s));
    QSignalSpy clicks(button, &QAbstractButton::clicked);
    QKeyEvent first(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, {}, true);
    QApplication::sendEvent(button, &first);
    QApplication::sendEvent(button, &repeated);
    EXPECT_EQ(clicks.size(), 1);
}

TEST_F(ComponentsButton, ATitleIsNeverAMnemonic)
{
    auto* button = shown(new PrimaryButton(u"Date & Time"_s));
    EXPECT_EQ(button->title(), u"Date & Time"_s);
    EXPECT_EQ(accessibleName(button), u"Date & Time"_s);
    EXPECT_TRUE(button->shortcut().isEmpty());
}

TEST_F(ComponentsButton, AnIconButtonIsNamedAndExplained)
{
    auto* button = shown(new IconButton(u"Remove <b>x</b>"_s, u"xmark.circle.fill"_s));
    EXPECT_EQ(accessibleName(button), u"Remove <b>x</b>"_s);
    EXPECT_EQ(button->toolTip(), u"<span>Remove &lt;b&gt;x&lt;/b&gt;</span>"_s);
}

TEST_F(ComponentsButton, OnlyKeyboardFocusShowsARing)
{
    auto* first = new PrimaryButton(u"Save"_s);
    auto* second = new SecondaryButton(u"Refresh"_s);
    show({first, second});
    EXPECT_EQ(ring(), nullptr);
    QTest::mouseClick(first, Qt::LeftButton);
    first->setFocus(Qt::MouseFocusReason);
    EXPECT_EQ(ring(), nullptr);
    QTest::keyClick(&window, Qt::Key_Tab);
    ASSERT_TRUE(second->hasFocus());
    ASSERT_NE(ring(), nullptr);
    EXPECT_EQ(ring()->widget(), second);
    EXPECT_EQ(ring()->geometry(), second->geometry().adjusted(-4, -4, 4, 4));
    QTest::mousePress(second, Qt::LeftButton);
    EXPECT_EQ(ring(), nullptr);
}

TEST_F(ComponentsButton, TheRingGoesWithItsButton)
{
    auto* button = shown(new PrimaryButton(u"Save"_s));
    button->setFocus(Qt::TabFocusReason);
    ASSERT_NE(ring(), nullptr);
    delete button;
    EXPECT_TRUE(ring() == nullptr || !ring()->isVisible());
}
