#include "Admin/AdminUsersView.h"
#include "Answers.h"
#include "MainThread.h"
#include "SignedIn.h"

#include <QKeyEvent>
#include <QScrollBar>
#include <QTest>

namespace {

/// The list of all accounts on a page that is shown, none of them loaded yet.
struct ShownUsers
{
    ShownUsers()
    {
        view.resize(960, 728);
        view.show();
        settle();
    }
    void load(const QByteArray& answer)
    {
        signedIn.session.answer(signedIn.session.count() - 1, 200, answer);
    }
    RowListView* list() const { return view.findChild<RowListView*>(); }

    SignedIn signedIn;
    std::shared_ptr<AdminUsersModel> model = std::make_shared<AdminUsersModel>(signedIn.context);
    AdminUsersView view{model};
};

struct LoadedUsers : ShownUsers
{
    explicit LoadedUsers(const benchmark::State& state)
    {
        load(Answers::users(int(state.range(0))));
        settle();
        list()->setFocus();
    }
};

void parseAlone(benchmark::State& state)
{
    const QByteArray answer = Answers::users(int(state.range(0)));
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(JSONValue::parse(answer));
}

/// From the answer's arrival until the list with its first rows is painted.
void showUsers(benchmark::State& state)
{
    const QByteArray answer = Answers::users(int(state.range(0)));
    MainThread thread(state);
    for ([[maybe_unused]] auto _ : state) {
        state.PauseTiming();
        auto shown = std::make_unique<ShownUsers>();
        state.ResumeTiming();
        thread.measure([&] { shown->load(answer); });
        state.PauseTiming();
        if (shown->list()->model()->rowCount() != state.range(0))
            state.SkipWithError("the users were not shown");
        shown.reset();
        state.ResumeTiming();
    }
}

/// The same while the accounts of an earlier load are on screen, which go.
void refreshUsers(benchmark::State& state)
{
    const QByteArray answer = Answers::users(int(state.range(0)));
    LoadedUsers shown(state);
    MainThread thread(state);
    for ([[maybe_unused]] auto _ : state) {
        state.PauseTiming();
        shown.model->refresh();
        settle();
        state.ResumeTiming();
        thread.measure([&] { shown.load(answer); });
    }
}

void scrollByPages(benchmark::State& state)
{
    LoadedUsers shown(state);
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
    LoadedUsers shown(state);
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
    LoadedUsers shown(state);
    shown.model->select(shown.model->rows().idAt(int(state.range(0) / 2)));
    settle();
    MainThread thread(state);
    for ([[maybe_unused]] auto _ : state)
        thread.measure([&] { QTest::keyClick(shown.list(), Qt::Key_Down); });
}

/// The next account while an arrow key is held down.
void holdArrow(benchmark::State& state)
{
    LoadedUsers shown(state);
    shown.model->select(shown.model->rows().idAt(int(state.range(0) / 2)));
    settle();
    MainThread thread(state);
    for ([[maybe_unused]] auto _ : state) {
        thread.measure([&] {
            QKeyEvent held(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier, {}, true);
            QCoreApplication::sendEvent(shown.list(), &held);
        });
    }
}

constexpr int userCount = 100'000;
BENCHMARK(parseAlone)->Arg(userCount)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(showUsers)->Arg(userCount)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(refreshUsers)->Arg(userCount)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(scrollByPages)->Arg(userCount)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(leap)->Arg(userCount)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(pressArrow)->Arg(userCount)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(holdArrow)->Arg(userCount)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
