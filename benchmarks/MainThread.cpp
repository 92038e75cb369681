#include "MainThread.h"

#include "BrandStyle.h"

#include <QEvent>

#include <algorithm>
#include <ctime>

double BenchmarkApplication::now()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return double(time.tv_sec) * 1e3 + double(time.tv_nsec) / 1e6;
}

bool BenchmarkApplication::notify(QObject* receiver, QEvent* event)
{
    if (event->type() == QEvent::Paint)
        ++paints_;
    bool handled = false;
    if (depth_ > 0)
        handled = QApplication::notify(receiver, event);
    else
        step([&] { handled = QApplication::notify(receiver, event); });
    return handled;
}

void BenchmarkApplication::ended(double begun)
{
    --depth_;
    longest_ = std::max(longest_, now() - begun);
}

double BenchmarkApplication::takeLongest()
{
    return std::exchange(longest_, 0);
}

MainThread::MainThread(benchmark::State& state)
    : state_(state), application_(*static_cast<BenchmarkApplication*>(QCoreApplication::instance()))
{ }

MainThread::~MainThread()
{
    state_.counters["longest"] = longest_;
    state_.counters["step"] = longestStep_;
}

void MainThread::finish(double begun, int paints)
{
    longest_ = std::max(longest_, BenchmarkApplication::now() - begun);
    longestStep_ = std::max(longestStep_, application_.takeLongest());
    if (application_.paints() == paints)
        state_.SkipWithError("nothing was painted");
}

int main(int argc, char* argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    BenchmarkApplication application(argc, argv);
    BrandStyle::install();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
