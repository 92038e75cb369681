#include "Components/LabeledField.h"
#include "Components/QuestionDialog.h"
#include "Components/SearchField.h"
#include "Components/SidebarEntry.h"
#include "Lists/RowListView.h"
#include "Palette.h"
#include "Screens/Cases.h"
#include "WholeWindowTest.h"

#include <QAbstractButton>
#include <QButtonGroup>

#include <algorithm>
#include <set>

using namespace Qt::StringLiterals;

namespace {

/// Every screen worked with keys alone.
class ScenesKeyboard : public WholeWindowTest, public testing::WithParamInterface<Scene>
{
protected:
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QWidget* focused = QApplication::focusWidget();
        QTest::keyClick(focused ? focused : window.get(), key, modifiers);
        settle();
    }

    /// The stops of the Tab key, from the first one in the window round to it again.
    QList<QWidget*> tabRound()
    {
        QList<QWidget*> stops;
        window->findChild<SidebarEntry*>()->setFocus();
        for (int i = 0; i < 100; ++i) {
            press(Qt::Key_Tab);
            QWidget* stop = QApplication::focusWidget();
            // The parts of a date are stops within one control.
            if (!stops.isEmpty() && stop == stops.constLast())
                continue;
            if (stop == nullptr || stops.contains(stop))
                break;
            stops += stop;
        }
        return stops;
    }

    QRect place(const QWidget* widget) const
    {
        return {widget->mapTo(window.get(), QPoint()), widget->size()};
    }

    static std::string describe(const QWidget* widget)
    {
        return widget->metaObject()->className() + (" \"" + widget->accessibleName().toStdString() + '"');
    }

    /// How much there is in the colour of the focus around a control.
    qsizetype focusColour(const QWidget* control)
    {
        constexpr int around = 6;
        const QRect area = place(control).adjusted(-around, -around, around, around);
        const QImage image = window->grab(area).toImage();
        const QRgb blue = Palette::color(Brand::blue).rgb();
        qsizetype count = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                count += image.pixel(x, y) == blue;
        }
        return count;
    }
};

/// Those that are reached by others of their group, or belong to a popup, are no stops of their own.
bool isStop(const QWidget* widget)
{
    const auto* button = qobject_cast<const QAbstractButton*>(widget);
    const bool isPassed = button && button->group() && !button->isChecked();
    const bool isRadio = button && button->autoExclusive() && !button->isChecked();
    return widget->isVisible() && widget->isEnabled() && (widget->focusPolicy() & Qt::TabFocus)
        && !widget->focusProxy() && !isPassed && !isRadio;
}

} // namespace

TEST_P(ScenesKeyboard, TabReachesEveryControl)
{
    open(GetParam());
    const QList<QWidget*> stops = tabRound();
    for (const QWidget* control : window->findChildren<QWidget*>()) {
        EXPECT_TRUE(!isStop(control) || stops.contains(control)) << describe(control);
    }
}

TEST_P(ScenesKeyboard, EveryFieldIsAStop)
{
    open(GetParam());
    const QList<QWidget*> stops = tabRound();
    for (const LabeledField* field : window->findChildren<LabeledField*>()) {
        QWidget* control = field->control();
        if (!control->isVisible() || !control->isEnabled())
            continue;
        EXPECT_TRUE(stops.contains(control)) << describe(control);
    }
}

TEST_P(ScenesKeyboard, TabGoesInReadingOrder)
{
    // Where a page has two columns, the order is that of the one column that it has here.
    open(GetParam(), {980, 680});
    const QList<QWidget*> stops = tabRound();
    std::vector<std::string> stepsBack;
    for (qsizetype i = 0; i < stops.size(); ++i) {
        const QRect from = place(stops.at(i));
        const QRect to = place(stops.at((i + 1) % stops.size()));
        const bool goesOn
            = to.center().y() > from.bottom() || to.center().x() > from.right() || from.contains(to);
        if (!goesOn)
            stepsBack.push_back(describe(stops.at(i)) + " to " + describe(stops.at((i + 1) % stops.size())));
    }
    EXPECT_THAT(stepsBack, testing::SizeIs(1)) << "only the end of the round leads back to its beginning";
}

TEST_P(ScenesKeyboard, TheFocusIsSeenWhereverItIs)
{
    open(GetParam(), {1180, 3000});
    for (QWidget* stop : tabRound()) {
        stop->setFocus(Qt::TabFocusReason);
        settle();
        const qsizetype with = focusColour(stop);
        stop->clearFocus();
        settle();
        EXPECT_GT(with, focusColour(stop) + 40) << describe(stop);
    }
}

TEST_P(ScenesKeyboard, DeleteAndBackspaceDeleteNothing)
{
    open(GetParam());
    const qsizetype requests = requestCount();
    for (QWidget* stop : tabRound()) {
        stop->setFocus(Qt::TabFocusReason);
        press(Qt::Key_Delete);
        press(Qt::Key_Backspace);
        EXPECT_EQ(requestCount(), requests) << describe(stop);
        EXPECT_EQ(window->findChild<QuestionDialog*>(), nullptr) << describe(stop);
    }
}

INSTANTIATE_TEST_SUITE_P(Screens, ScenesKeyboard, testing::ValuesIn(allScenes()), ByName());

namespace {

/// The screens that show what the server has, with what they ask for.
class ScenesRefresh : public WholeWindowTest,
                      public testing::WithParamInterface<std::tuple<Scene, QKeyCombination>>
{ };

const std::vector<Scene> loadingScenes = [] {
    std::vector<Scene> loading;
    for (const Scene& scene : allScenes()) {
        const std::set<std::string> others{
            "HomeSignedOut", "SettingsSignedOut", "SignIn", "Home", "Settings", "Booking", "Restricted"};
        if (!others.contains(scene.name))
            loading.push_back(scene);
    }
    return loading;
}();

} // namespace

TEST_P(ScenesRefresh, BothKeysLoadAgain)
{
    const auto& [scene, key] = GetParam();
    open(scene);
    const qsizetype before = requestCount();
    QTest::keyClick(window.get(), key.key(), key.keyboardModifiers());
    settle();
    ASSERT_GT(requestCount(), before);
    EXPECT_TRUE(line(before).startsWith(u"GET "_s));
    answerEverything();
}

INSTANTIATE_TEST_SUITE_P(Screens, ScenesRefresh,
    testing::Combine(testing::ValuesIn(loadingScenes),
        testing::Values(QKeyCombination(Qt::Key_F5), QKeyCombination(Qt::CTRL, Qt::Key_R))),
    [](const auto& keys) {
        const bool isFunctionKey = std::get<QKeyCombination>(keys.param).key() == Qt::Key_F5;
        return std::get<Scene>(keys.param).name + (isFunctionKey ? "F5" : "CtrlR");
    });

namespace {

class ScenesSearch : public WholeWindowTest, public testing::WithParamInterface<Scene>
{ };

const std::vector<Scene> listScenes = [] {
    std::vector<Scene> lists;
    std::ranges::copy_if(
        allScenes(), std::back_inserter(lists), [](const Scene& scene) { return scene.row >= 0; });
    return lists;
}();

} // namespace

TEST_P(ScenesSearch, ControlFLeadsToTheSearchAndEscapeEmptiesIt)
{
    open(GetParam());
    auto* search = window->findChild<SearchField*>();
    const auto* list = window->findChild<RowListView*>();
    const int all = list->model()->rowCount();
    QTest::keyClick(window.get(), Qt::Key_F, Qt::ControlModifier);
    ASSERT_TRUE(search->hasFocus());
    QTest::keyClicks(search, u"nobody of that name"_s);
    settle();
    EXPECT_EQ(list->model()->rowCount(), 0);
    QTest::keyClick(search, Qt::Key_Escape);
    settle();
    EXPECT_EQ(search->text(), QString());
    EXPECT_EQ(list->model()->rowCount(), all);
    EXPECT_TRUE(search->hasFocus());
}

INSTANTIATE_TEST_SUITE_P(Screens, ScenesSearch, testing::ValuesIn(listScenes), ByName());

namespace {

class ScenesKeyboardPanes : public WholeWindowTest
{
protected:
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(window.get(), key, modifiers);
        settle();
    }
    static QString focused()
    {
        const QWidget* widget = QApplication::focusWidget();
        return widget ? widget->accessibleName() : QString();
    }
};

} // namespace

TEST_F(ScenesKeyboardPanes, F6GoesFromPaneToPaneAndBackToWhereTheFocusWas)
{
    open({"SessionOfClient", AppRole::client, AppSection::sessions, 0});
    auto* search = window->findChild<SearchField*>();
    search->setFocus();
    press(Qt::Key_F6);
    const QString inDetail = focused();
    EXPECT_EQ(inDetail, u"Cancel Session"_s);
    press(Qt::Key_F6);
    EXPECT_EQ(focused(), u"Sessions"_s);
    press(Qt::Key_F6);
    EXPECT_TRUE(search->hasFocus());
    press(Qt::Key_F6, Qt::ShiftModifier);
    EXPECT_EQ(focused(), u"Sessions"_s);
    press(Qt::Key_F6, Qt::ShiftModifier);
    EXPECT_EQ(focused(), inDetail);
}

TEST_F(ScenesKeyboardPanes, F6PassesOverAPaneInWhichNothingTakesTheFocus)
{
    open({"Users", AppRole::admin, AppSection::adminUsers});
    window->findChild<SearchField*>()->setFocus();
    press(Qt::Key_F6);
    EXPECT_EQ(focused(), u"Users"_s);
    press(Qt::Key_F6);
    EXPECT_TRUE(window->findChild<SearchField*>()->hasFocus());
}

TEST_F(ScenesKeyboardPanes, F6LeadsFromTheSidebarIntoAScreenOfOnePane)
{
    open({"BusinessDashboard", AppRole::business, AppSection::businessDashboard});
    window->findChild<SidebarEntry*>()->setFocus();
    press(Qt::Key_F6);
    EXPECT_EQ(focused(), u"Book for Client"_s);
    press(Qt::Key_F6);
    EXPECT_EQ(focused(), u"Dashboard"_s);
}
