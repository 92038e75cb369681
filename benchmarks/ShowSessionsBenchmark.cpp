#include "Answers.h"
#include "MainThread.h"
#include "Sessions/SessionsView.h"
#include "SignedIn.h"

namespace {

void parseAlone(benchmark::State& state)
{
    const QByteArray answer = Answers::sessions(int(state.range(0)));
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(JSONValue::parse(answer));
}

/// From the answer's arrival until the list with its first rows is painted.
void showSessions(benchmark::State& state)
{
    const QByteArray answer = Answers::sessions(int(state.range(0)));
    SignedIn signedIn;
    MainThread thread(state);
    for ([[maybe_unused]] auto _ : state) {
        state.PauseTiming();
        auto model = std::make_shared<SessionsModel>(signedIn.context);
        SessionsView view(model);
        view.resize(960, 728);
        view.show();
        settle();
        state.ResumeTiming();

        thread.measure([&] { signedIn.session.answer(signedIn.session.count() - 1, 200, answer); });
        if (model->sessions().size() != state.range(0))
            state.SkipWithError("the sessions were not shown");
    }
}

BENCHMARK(parseAlone)->Arg(10'000)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(showSessions)->Arg(10'000)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
