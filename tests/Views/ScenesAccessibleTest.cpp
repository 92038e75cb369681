#include "Components/Button.h"
#include "Components/Card.h"
#include "Components/LabeledField.h"
#include "Components/LoadingLine.h"
#include "Components/PlainLabel.h"
#include "Components/SidebarEntry.h"
#include "Components/Stepper.h"
#include "Components/SymbolLine.h"
#include "Screens/Cases.h"
#include "Sessions/SessionSummaryCard.h"
#include "Shell/ContentPane.h"
#include "WholeWindowTest.h"

#include <functional>
#include <map>

using namespace Qt::StringLiterals;

namespace {

/// What assistive technology is told of every screen.
class ScenesAccessible : public WholeWindowTest, public testing::WithParamInterface<Scene>
{
protected:
    using Visit = std::function<void(const QAccessibleInterface&)>;

    /// Goes through everything that is on screen, parents first.
    static void visit(const QAccessibleInterface& from, const Visit& visitor)
    {
        if (from.state().invisible)
            return;
        visitor(from);
        for (int place = 0; place < from.childCount(); ++place) {
            if (const QAccessibleInterface* child = from.child(place))
                visit(*child, visitor);
        }
    }
    void visitAll(const Visit& visitor)
    {
        visit(*QAccessible::queryAccessibleInterface(window.get()), visitor);
    }

    static std::string describe(const QAccessibleInterface& interface)
    {
        const QObject* object = interface.object();
        return std::string(object ? object->metaObject()->className() : "part") + ", role "
            + std::to_string(interface.role()) + ", in \""
            + (interface.parent() ? interface.parent()->text(QAccessible::Name).toStdString() : "") + '"';
    }
};

/// What a person works with or is told by name.
bool needsName(const QAccessibleInterface& interface)
{
    switch (interface.role()) {
    case QAccessible::Button:
    case QAccessible::ButtonMenu:
    case QAccessible::CheckBox:
    case QAccessible::RadioButton:
    case QAccessible::ComboBox:
    case QAccessible::EditableText:
    case QAccessible::SpinBox:
    case QAccessible::List:
    case QAccessible::ListItem:
    case QAccessible::ProgressBar:
    case QAccessible::StaticText:
    case QAccessible::MenuItem:
    case QAccessible::AlertMessage:
        return true;
    default:
        return interface.state().focusable;
    }
}

bool isControl(const QAccessibleInterface& interface)
{
    return interface.state().focusable && interface.role() != QAccessible::ListItem;
}

} // namespace

TEST_P(ScenesAccessible, EveryControlHasAName)
{
    open(GetParam());
    int named = 0;
    visitAll([&named](const QAccessibleInterface& interface) {
        if (!needsName(interface))
            return;
        ++named;
        EXPECT_FALSE(interface.text(QAccessible::Name).trimmed().isEmpty()) << describe(interface);
    });
    EXPECT_GT(named, 10) << "the tree has been walked";
}

TEST_P(ScenesAccessible, NoTwoControlsOfAGroupHaveTheSameName)
{
    open(GetParam());
    visitAll([](const QAccessibleInterface& group) {
        std::map<std::pair<int, QString>, int> seen;
        for (int place = 0; place < group.childCount(); ++place) {
            const QAccessibleInterface* child = group.child(place);
            if (!child || child->state().invisible || !isControl(*child))
                continue;
            const auto key = std::pair(int(child->role()), child->text(QAccessible::Name));
            EXPECT_EQ(++seen[key], 1) << key.second.toStdString() << ", " << describe(*child);
        }
    });
}

TEST_P(ScenesAccessible, AFieldIsRelatedToItsCaption)
{
    open(GetParam());
    for (const LabeledField* field : window->findChildren<LabeledField*>()) {
        if (!field->isVisible() || field->caption().isEmpty())
            continue;
        const auto* control = QAccessible::queryAccessibleInterface(field->control());
        QStringList captions;
        for (const auto& [related, relation] : control->relations(QAccessible::Label))
            captions += related->text(QAccessible::Name);
        EXPECT_TRUE(captions.contains(field->caption())) << field->caption().toStdString();
        EXPECT_EQ(control->text(QAccessible::Name), field->caption());
    }
}

TEST_P(ScenesAccessible, TheScreenIsNamedByItsTitle)
{
    open(GetParam());
    const auto* screen = QAccessible::queryAccessibleInterface(window->findChild<ContentPane*>()->screen());
    EXPECT_EQ(screen->role(), QAccessible::LayeredPane);
    // What is called alike is taken for where somebody is already, and a sign-in leads on to its section.
    const bool isSignIn = model.gate() == MainWindowModel::Gate::signIn;
    EXPECT_EQ(
        screen->text(QAccessible::Name), window->windowTitle() + (isSignIn ? u", Sign In"_s : QString()));
}

TEST_P(ScenesAccessible, TheEntriesOfTheSidebarAreListsWithNames)
{
    open(GetParam());
    for (const SidebarEntry* entry : window->findChildren<SidebarEntry*>()) {
        QAccessibleInterface* told = QAccessible::queryAccessibleInterface(const_cast<SidebarEntry*>(entry));
        QAccessibleInterface* list = told->parent();
        EXPECT_EQ(list->role(), QAccessible::List);
        EXPECT_FALSE(list->text(QAccessible::Name).isEmpty());
        EXPECT_GE(list->indexOfChild(told), 0);
        if (told->state().selected) {
            EXPECT_EQ(told->text(QAccessible::Name), title(model.selectedSection()));
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Screens, ScenesAccessible, testing::ValuesIn(allScenes()), ByName());

TEST_F(WholeWindowTest, WhatASessionIsMadeOfAreGroupsWithNames)
{
    open({"", AppRole::admin, AppSection::sessions, 0});
    QStringList groups;
    for (Card* card : window->findChildren<Card*>()) {
        const auto* told = QAccessible::queryAccessibleInterface(card);
        if (told->role() == QAccessible::Grouping && !told->state().invisible)
            groups += told->text(QAccessible::Name);
    }
    EXPECT_EQ(
        groups, QStringList({u"Session"_s, u"Admin Controls"_s, u"Messages"_s, u"Session Documents"_s}));
}

TEST_F(WholeWindowTest, TheFactsOfASessionAreToldWithCommas)
{
    open({"", AppRole::client, AppSection::sessions, 0});
    QAccessibleInterface* session
        = QAccessible::queryAccessibleInterface(window->findChild<SessionSummaryCard*>());
    const QString told = session->text(QAccessible::Description);
    EXPECT_GE(told.count(u", "_s), 1) << told.toStdString();
    for (const SymbolLine* fact : session->object()->findChildren<SymbolLine*>()) {
        const QString heard = fact->findChild<PlainLabel*>()->accessibleName();
        if (!heard.isEmpty()) {
            EXPECT_TRUE(heard.endsWith(u','));
            EXPECT_TRUE(told.contains(heard.chopped(1))) << heard.toStdString();
        }
    }
}

TEST_F(WholeWindowTest, WhoeverIsAmongTheEntriesGoesAlongWithAShortcut)
{
    open({"", std::nullopt, AppSection::dashboard});
    window->findChild<SidebarEntry*>()->setFocus(Qt::TabFocusReason);
    QTest::keyClick(window.get(), Qt::Key_Comma, Qt::ControlModifier);
    settle();
    ASSERT_EQ(model.selectedSection(), AppSection::settings);
    EXPECT_TRUE(named<SidebarEntry>(*window, u"Settings"_s)->hasFocus());
}

TEST_F(WholeWindowTest, AFieldThatCameLaterIsStillOneControl)
{
    open({"", AppRole::client, AppSection::book});
    click(named<Button>(*window, u"Add Signer"_s));
    for (LabeledField* field : window->findChildren<LabeledField*>()) {
        const auto* around = QAccessible::queryAccessibleInterface(field);
        EXPECT_FALSE(around->state().focusable) << field->caption().toStdString();
    }
}

TEST_F(WholeWindowTest, TheNumberOfSignaturesIsRelatedToWhatTellsIt)
{
    open({"", AppRole::client, AppSection::book});
    auto* stepper = named<Stepper>(*window, u"Number of Signatures"_s);
    ASSERT_NE(stepper, nullptr);
    const auto labels = QAccessible::queryAccessibleInterface(stepper)->relations(QAccessible::Label);
    ASSERT_EQ(labels.size(), 1);
    EXPECT_EQ(labels.constFirst().first->text(QAccessible::Name), u"Number of Signatures: 1"_s);
}

TEST_F(WholeWindowTest, WhatLoadsSaysSoAndIsBusyUntilItIsThere)
{
    window = std::make_unique<MainWindow>(model, appearance);
    show(*window);
    signIn(account(u"Maya Whitfield"_s, {AppRole::admin}), AppRole::admin);
    router.open(AppSection::adminUsers);
    settle();
    auto* loading = window->findChild<LoadingLine*>();
    ASSERT_NE(loading, nullptr);
    ASSERT_TRUE(loading->isVisible());
    const auto* told = QAccessible::queryAccessibleInterface(loading);
    EXPECT_EQ(told->text(QAccessible::Name), u"Loading users..."_s);
    EXPECT_TRUE(told->state().busy);
    answerEverything();
    EXPECT_FALSE(loading->isVisible());
}
