#include "Screens/Cases.h"
#include "WholeWindowTest.h"

#include <QAbstractButton>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QShortcut>

#include <map>

using namespace Qt::StringLiterals;

namespace {

/// The keys that do something from anywhere in the window, with who reacts to them.
class Keys
{
public:
    explicit Keys(const QWidget& window)
    {
        for (const QAction* action : window.findChildren<QAction*>()) {
            for (const QKeySequence& keys : action->shortcuts())
                note(keys, *action);
        }
        for (const QShortcut* shortcut : window.findChildren<QShortcut*>()) {
            const auto* owner = qobject_cast<const QWidget*>(shortcut->parent());
            if (shortcut->isEnabled() && owner && owner->isVisible())
                note(shortcut->key(), *shortcut);
        }
        for (const QAbstractButton* button : window.findChildren<QAbstractButton*>()) {
            if (button->isVisible())
                note(button->shortcut(), *button);
        }
        for (const QLabel* label : window.findChildren<QLabel*>()) {
            if (label->isVisible() && label->buddy())
                note(QKeySequence::mnemonic(label->text()), *label);
        }
    }

    void note(const QKeySequence& keys, const QObject& reacts)
    {
        if (!keys.isEmpty())
            ++counts_[keys.toString() + u' ' + scopeOf(reacts)];
    }
    const std::map<QString, int>& counts() const { return counts_; }

private:
    /// A shortcut that counts only where the focus is does not meet the others.
    static QString scopeOf(const QObject& reacts)
    {
        const auto* shortcut = qobject_cast<const QShortcut*>(&reacts);
        const bool isLocal = shortcut && shortcut->context() != Qt::WindowShortcut
            && shortcut->context() != Qt::ApplicationShortcut;
        return isLocal ? QString::number(quintptr(shortcut->parent())) : QString();
    }

    std::map<QString, int> counts_;
};

class ScenesShortcuts : public WholeWindowTest, public testing::WithParamInterface<Scene>
{ };

} // namespace

TEST_P(ScenesShortcuts, NoKeyMeansTwoThings)
{
    open(GetParam());
    Keys keys(*window);
    for (const QAction* menu : window->menuBar()->actions())
        keys.note(QKeySequence::mnemonic(menu->text()), *menu);
    EXPECT_TRUE(keys.counts().contains(u"Ctrl+, "_s)) << "the window has been searched";
    EXPECT_TRUE(keys.counts().contains(u"Alt+Q "_s));
    for (const auto& [key, count] : keys.counts())
        EXPECT_EQ(count, 1) << key.toStdString();
}

INSTANTIATE_TEST_SUITE_P(Screens, ScenesShortcuts, testing::ValuesIn(allScenes()), ByName());

TEST_F(WholeWindowTest, EveryItemOfTheMenuHasALetterOfItsOwn)
{
    open(allScenes().front());
    std::map<QString, int> letters;
    for (const QAction* item : window->menuBar()->actions().constFirst()->menu()->actions()) {
        if (!item->isSeparator())
            ++letters[QKeySequence::mnemonic(item->text()).toString()];
    }
    EXPECT_EQ(letters, (std::map<QString, int>{{u"Alt+B"_s, 1}, {u"Alt+S"_s, 1}, {u"Alt+E"_s, 1}}));
}

TEST_F(WholeWindowTest, TheMenuIsWorkedByItsLetters)
{
    open(allScenes().front());
    const auto* menu = window->menuBar()->actions().constFirst()->menu();
    for (const auto& [letter, section] : {std::pair(Qt::Key_S, AppSection::sessions),
             {Qt::Key_B, AppSection::book}, {Qt::Key_E, AppSection::settings}}) {
        // A platform without a window manager leaves a menu active when it closes.
        QApplication::setActiveWindow(window.get());
        QTest::keyClick(window.get(), Qt::Key_Q, Qt::AltModifier);
        ASSERT_TRUE(menu->isVisible()) << rawValue(section).toStdString();
        QTest::keyClick(QApplication::activePopupWidget(), letter);
        settle();
        EXPECT_FALSE(menu->isVisible());
        EXPECT_EQ(router.selectedSection.value(), section);
    }
}
