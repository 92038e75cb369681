#include "ComponentsTest.h"

#include "AlertPresenter.h"
#include "Components/AlertDialog.h"
#include "Components/PlainLabel.h"
#include "Components/PrimaryButton.h"
#include "Components/TextField.h"

#include <QLineEdit>
#include <QShortcut>

using namespace Qt::StringLiterals;

namespace {

class ComponentsAlert : public ComponentsTest
{
protected:
    ComponentsAlert()
    {
        show({field});
        field->lineEdit()->setFocus();
    }

    AlertDialog* present(const QString& title = u"Missing Information"_s)
    {
        return AlertDialog::present(field, title, u"Describe what needs to be <b>notarized</b>."_s);
    }

    /// Of the alerts that can be seen.
    QStringList shownTitles() const
    {
        QStringList titles;
        for (const auto* alert : window.findChildren<AlertDialog*>()) {
            if (alert->isVisible())
                titles += alert->title();
        }
        return titles;
    }

    static void finishClosing() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

    TextField* field = new TextField(u"Name"_s);
};

} // namespace

TEST_F(ComponentsAlert, SaysItsTextsAndHoldsTheFocus)
{
    auto* alert = present();
    EXPECT_EQ(accessible(alert)->role(), QAccessible::AlertMessage);
    EXPECT_EQ(accessibleName(alert), u"Missing Information"_s);
    EXPECT_EQ(
        accessible(alert)->text(QAccessible::Description), u"Describe what needs to be <b>notarized</b>."_s);
    EXPECT_EQ(alert->okButton()->title(), u"OK"_s);
    EXPECT_TRUE(alert->okButton()->hasFocus());
    EXPECT_EQ(alert->geometry(), window.rect());
}

TEST_F(ComponentsAlert, EachWayOfDismissingItClosesItOnceAndReturnsTheFocus)
{
    const std::initializer_list<void (*)(AlertDialog*)> ways{
        [](AlertDialog* alert) { QTest::keyClick(alert->okButton(), Qt::Key_Return); },
        [](AlertDialog* alert) { QTest::keyClick(alert->okButton(), Qt::Key_Space); },
        [](AlertDialog* alert) { QTest::keyClick(alert->okButton(), Qt::Key_Escape); },
        [](AlertDialog* alert) { QTest::mouseClick(alert->okButton(), Qt::LeftButton); }};
    for (const auto dismiss : ways) {
        field->lineEdit()->setFocus();
        const QPointer alert = present();
        int dismissals = 0;
        QObject::connect(alert, &QDialog::finished, alert, [&dismissals] { ++dismissals; });
        dismiss(alert);
        finishClosing();
        EXPECT_EQ(dismissals, 1);
        EXPECT_TRUE(alert.isNull());
        EXPECT_TRUE(field->lineEdit()->hasFocus());
    }
}

TEST_F(ComponentsAlert, NothingBehindItReacts)
{
    QShortcut shortcut(QKeySequence(Qt::CTRL | Qt::Key_B), &window);
    QSignalSpy triggered(&shortcut, &QShortcut::activated);
    QTest::keyClick(window.focusWidget(), Qt::Key_B, Qt::ControlModifier);
    EXPECT_EQ(triggered.size(), 1);

    auto* alert = present();
    QTest::keyClick(alert->okButton(), Qt::Key_B, Qt::ControlModifier);
    EXPECT_EQ(triggered.size(), 1);
    QTest::keyClick(alert->okButton(), Qt::Key_Tab);
    EXPECT_TRUE(alert->okButton()->hasFocus());
    QTest::keyClick(alert->okButton(), Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(alert->okButton()->hasFocus());
    field->lineEdit()->setFocus();
    EXPECT_TRUE(alert->okButton()->hasFocus());
    EXPECT_EQ(window.childAt(field->geometry().center())->window(), &window);
    EXPECT_FALSE(field->isAncestorOf(window.childAt(field->geometry().center())));
}

TEST_F(ComponentsAlert, OthersWaitTheirTurn)
{
    auto* first = present(u"Saved"_s);
    auto* second = present(u"Cannot Load Session"_s);
    auto* third = present(u"Cannot Load Sessions"_s);
    for (auto* alert : {first, second, third}) {
        EXPECT_EQ(shownTitles(), QStringList{alert->title()});
        EXPECT_TRUE(alert->okButton()->hasFocus());
        QTest::keyClick(alert->okButton(), Qt::Key_Return);
        finishClosing();
    }
    EXPECT_EQ(shownTitles(), QStringList());
    EXPECT_TRUE(field->lineEdit()->hasFocus())
        << "and the focus goes back to where it was before all of them";
}

TEST_F(ComponentsAlert, OneThatComesWhileAnotherWaitsIsLast)
{
    auto* first = present(u"Saved"_s);
    auto* second = present(u"Cannot Load Session"_s);
    QTest::keyClick(first->okButton(), Qt::Key_Return);
    auto* third = present(u"Cannot Load Files"_s);
    EXPECT_EQ(shownTitles(), QStringList{u"Cannot Load Session"_s});
    QTest::keyClick(second->okButton(), Qt::Key_Return);
    EXPECT_EQ(shownTitles(), QStringList{u"Cannot Load Files"_s});
    EXPECT_TRUE(third->okButton()->hasFocus());
}

TEST_F(ComponentsAlert, OneWithTheSameTextsIsNotAddedTwice)
{
    auto* open = present(u"Cannot Load"_s);
    auto* waiting = present(u"Saved"_s);
    for (int time = 0; time < 10; ++time) {
        EXPECT_EQ(present(u"Cannot Load"_s), open);
        EXPECT_EQ(present(u"Saved"_s), waiting);
    }
    EXPECT_EQ(window.findChildren<AlertDialog*>().size(), 2);
    QTest::keyClick(open->okButton(), Qt::Key_Return);
    EXPECT_NE(present(u"Cannot Load"_s), open) << "read, it is said anew";
}

TEST_F(ComponentsAlert, OneThatWaitsForAScreenThatHasGoneIsDropped)
{
    auto screen = std::make_unique<QWidget>(&window);
    auto* first = present(u"Saved"_s);
    AlertDialog::present(screen.get(), u"Cannot Load Session"_s, u"Try again."_s);
    AlertDialog::present(screen.get(), u"Cannot Load"_s, u"Try again."_s);
    AlertDialog::present(field, u"Cannot Load"_s, u"Try again."_s);
    screen.reset();
    QTest::keyClick(first->okButton(), Qt::Key_Return);
    finishClosing();
    EXPECT_EQ(shownTitles(), QStringList{u"Cannot Load"_s}) << "of another screen as well";
    EXPECT_EQ(window.findChildren<AlertDialog*>().size(), 1);
}

TEST_F(ComponentsAlert, EachThatAScreenSetsIsRead)
{
    QProperty<std::optional<AlertMessage>> alert;
    int dismissals = 0;
    presentAlerts(field, alert, [&] {
        ++dismissals;
        alert = std::nullopt;
    });
    alert = AlertMessage{.title = u"Saved"_s, .message = u"Session was updated."_s};
    alert = AlertMessage{.title = u"Cannot Load Session"_s, .message = u"Try again."_s};
    EXPECT_EQ(shownTitles(), QStringList{u"Saved"_s});
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_EQ(dismissals, 0) << "the newer one is not read yet";
    EXPECT_EQ(shownTitles(), QStringList{u"Cannot Load Session"_s});
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_EQ(dismissals, 1);
    EXPECT_EQ(alert.value(), std::nullopt);
    EXPECT_EQ(shownTitles(), QStringList());
}

TEST_F(ComponentsAlert, OneThatIsClosingDoesNotSwallowTheNext)
{
    auto* first = present();
    QTest::keyClick(first->okButton(), Qt::Key_Escape);
    auto* second = present(u"Cannot Save"_s);
    EXPECT_NE(first, second);
    finishClosing();
    EXPECT_TRUE(second->isVisible());
    EXPECT_TRUE(second->okButton()->hasFocus());
}

TEST_F(ComponentsAlert, FollowsItsWindowAndFitsIntoIt)
{
    auto* alert = AlertDialog::present(&window, u"Long"_s, u"word "_s.repeated(3000));
    window.resize(700, 500);
    EXPECT_EQ(alert->geometry(), window.rect());
    const auto* card = alert->okButton()->parentWidget();
    EXPECT_EQ(card->width(), 400);
    EXPECT_LE(card->height(), 460);
    EXPECT_TRUE(card->rect().contains(alert->okButton()->geometry()));
}
