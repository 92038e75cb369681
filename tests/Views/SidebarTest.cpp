#include "Shell/Sidebar.h"

#include "Components/ComboBox.h"
#include "Components/SidebarEntry.h"
#include "Type.h"
#include "WholeWindowTest.h"

#include <QAbstractItemView>
#include <QScrollArea>
#include <QScrollBar>

using namespace Qt::StringLiterals;

namespace {

/// The sidebar of somebody with several roles, in twice the text size.
class SidebarTest : public WholeWindowTest
{
protected:
    SidebarTest() { Type::followDesktop(26); }
    ~SidebarTest() override
    {
        window.reset();
        Type::followDesktop(13);
    }

    void openWide(QSize size)
    {
        open({"Home", std::nullopt, AppSection::dashboard}, size);
        signIn(account(u"Maya Whitfield"_s, {AppRole::notary, AppRole::admin}), AppRole::admin);
        settle();
    }
    QWidget* sidebar() const { return window->findChild<Sidebar*>(); }
    QStringList entries() const
    {
        QStringList names;
        for (const SidebarEntry* entry : sidebar()->findChildren<SidebarEntry*>()) {
            if (entry->isVisible())
                names += entry->accessibleName();
        }
        return names;
    }
};

const QSize narrow(980, 680);
const QSize wide(1600, 1000);

} // namespace

TEST_F(SidebarTest, FoldsToSymbolsWhereTheScreensNeedTheRoom)
{
    openWide(wide);
    const QStringList all = entries();
    EXPECT_GT(sidebar()->width(), 300);
    EXPECT_TRUE(texts(*sidebar()).contains(u"Maya Whitfield"_s));
    window->resize(narrow);
    settle();
    EXPECT_LT(sidebar()->width(), 100);
    EXPECT_EQ(texts(*sidebar()), QStringList());
    EXPECT_EQ(entries(), all) << "whoever listens notices nothing";
    for (const SidebarEntry* entry : sidebar()->findChildren<SidebarEntry*>()) {
        if (entry->isVisible()) {
            EXPECT_EQ(entry->toolTip(), entry->accessibleName());
        }
    }
    EXPECT_NE(named(*sidebar(), u"Maya Whitfield, Admin"_s), nullptr);
    window->resize(wide);
    settle();
    EXPECT_TRUE(texts(*sidebar()).contains(u"Maya Whitfield"_s));
    EXPECT_EQ(named<SidebarEntry>(*window, u"Sessions"_s)->toolTip(), QString());
}

TEST_F(SidebarTest, InTheDesignsTextSizeItNeverFolds)
{
    Type::followDesktop(13);
    openWide(narrow);
    EXPECT_EQ(sidebar()->width(), 220);
    EXPECT_TRUE(texts(*sidebar()).contains(u"Maya Whitfield"_s));
}

TEST_F(SidebarTest, FoldedItIsWorkedByKeyboardAsEver)
{
    openWide(narrow);
    auto* entry = named<SidebarEntry>(*window, u"Dashboard"_s);
    ASSERT_NE(entry, nullptr);
    entry->setFocus(Qt::TabFocusReason);
    QTest::keyClick(entry, Qt::Key_Tab);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    settle();
    EXPECT_EQ(router.selectedSection.value(), AppSection::book);
    EXPECT_TRUE(named<SidebarEntry>(*window, u"Book Remote Notary"_s)->hasFocus());
    window->resize(wide);
    settle();
    EXPECT_TRUE(named<SidebarEntry>(*window, u"Book Remote Notary"_s)->hasFocus()) << "also unfolded";
    answerEverything();
}

TEST_F(SidebarTest, FoldedItSwitchesRoles)
{
    openWide(narrow);
    auto* picker = named<ComboBox>(*window, u"Role"_s);
    ASSERT_NE(picker, nullptr);
    EXPECT_EQ(picker->toolTip(), u"Admin"_s);
    EXPECT_EQ(picker->width(), picker->height());
    picker->showPopup();
    EXPECT_GT(picker->view()->width(), 2 * picker->width()) << "the list shows the words";
    picker->hidePopup();
    picker->setFocus();
    QTest::keyClick(picker, Qt::Key_Home);
    settle();
    EXPECT_EQ(auth.role(), AppRole::client);
    EXPECT_EQ(named<ComboBox>(*window, u"Role"_s)->toolTip(), u"Client"_s);
    answerEverything();
}

TEST_F(SidebarTest, WhoIsHereStaysInSightWhereTheEntriesScroll)
{
    openWide({1366, 712});
    auto* page = sidebar()->findChild<QScrollArea*>();
    ASSERT_GT(page->verticalScrollBar()->maximum(), 0);
    auto* last = named<SidebarEntry>(*window, u"Settings"_s);
    page->ensureWidgetVisible(last);
    settle();
    for (QWidget* pinned : {named(*sidebar(), u"Maya Whitfield"_s), named(*sidebar(), u"Role"_s)}) {
        ASSERT_NE(pinned, nullptr);
        EXPECT_EQ(pinned->visibleRegion().boundingRect(), pinned->rect());
    }
    EXPECT_FALSE(last->visibleRegion().isEmpty());
}
