#include "Admin/AdminUsersView.h"
#include "Answers.h"
#include "MainThread.h"
#include "SignedIn.h"

#include <QKeyEvent>
#include <QScrollBar>
#include <QTest>

namespace {

constexpr int userCount = 100'000;

const QByteArray& users()
{
    static const QByteArray users = Answers::users(userCount);
    return users;
}

/// The list of all accounts on a page that is shown, none of them loaded yet.
struct ShownUsers
{
    ShownUsers()
    {
        view.resize(960, 728);
        view.show();
        settle();
    }
    void load() { signedIn.session.answer(signedIn.session.count() - 1, 200, users()); }
    RowListView* list() const { return view.findChild<RowListView*>(); }

    SignedIn signedIn;
    std::shared_ptr<AdminUsersModel> model = std::make_shared<AdminUsersModel>(signedIn.context);
    AdminUsersView view{model};
};

struct LoadedUsers : ShownUsers
{
    LoadedUsers()
    {
        load();
        settle();
        list()->setFocus();
    }
};

void parseAlone(benchmark::State& state)
{
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(JSONValue::parse(users()));
}

/// From the answer's arrival until the list with its first rows is painted.
void showUsers(benchmark::State& state)
{
    MainThread thread(state);
    for ([[maybe_unused]] auto _ : state) {
        state.PauseTiming();
        auto shown = std::make_unique<ShownUsers>();
        state.ResumeTiming();
        thread.measure([&] { shown->load(); });
        state.PauseTiming();
        if (shown->list()->model()->rowCount() != userCount)
            state.SkipWithError("the users were not shown");
        shown.reset();
        state.ResumeTiming();
    }
}

/// The same while the accounts of an earlier load are on screen, which go.
void refreshUsers(benchmark::State& state)
{
    LoadedUsers shown;
    MainThread thread(state);
    for ([[maybe_unused]] auto _ : state) {
        state.PauseTiming();
        shown.model->refresh();
        settle();
        state.ResumeTiming();
        thread.measure([&] { shown.load(); });
    }
}

void scrollByPages(benchmark::State& state)
{
    LoadedUsers shown;
    auto* bar = shown.list()->verticalScrollBar();
    auto page = QAbstractSlider::SliderPageStepAdd;
    MainThread thread(state);
    for ([[maybe_unused]] auto _ : state) {
        if (bar->value() == bar->maximum())
            page = QAbstractSlider::SliderPageStepSub;
        else if (bar->value() == bar->minimum())
            page = QAbstractSlider::SliderPageStepAdd;
        thread.measure([&] { bar->triggerAction(page); });
    }
}

/// To somewhere else in the list.
void leap(benchmark::State& state)
{
    LoadedUsers shown;
    auto* bar = shown.list()->verticalScrollBar();
    int percent = 0;
    MainThread thread(state);
    for ([[maybe_unused]] auto _ : state) {
        percent = (percent + 37) % 100;
        thread.measure([&] { bar->setValue(bar->maximum() / 100 * percent); });
    }
}

/// The next account, with its detail beside the list, far down in it.
void pressArrow(benchmark::State& state)
{
    LoadedUsers shown;
    shown.model->select(shown.model->rows().idAt(userCount / 2));
    settle();
    MainThread thread(state);
    for ([[maybe_unused]] auto _ : state)
        thread.measure([&] { QTest::keyClick(shown.list(), Qt::Key_Down); });
}

/// The next account while an arrow key is held down.
void holdArrow(benchmark::State& state)
{
    LoadedUsers shown;
    shown.model->select(shown.model->rows().idAt(userCount / 2));
    settle();
    MainThread thread(state);
    for ([[maybe_unused]] auto _ : state) {
        thread.measure([&] {
            QKeyEvent held(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier, {}, true);
            QCoreApplication::sendEvent(shown.list(), &held);
        });
    }
}

BENCHMARK(parseAlone)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(showUsers)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(refreshUsers)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(scrollByPages)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(leap)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(pressArrow)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(holdArrow)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
