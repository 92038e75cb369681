#pragma once

#include "support/EventLoop.h"

#include <benchmark/benchmark.h>

#include <QApplication>

/// The application of every benchmark. It takes the time of each event that the main thread handles.
class BenchmarkApplication : public QApplication
{
public:
    using QApplication::QApplication;

    bool notify(QObject* receiver, QEvent* event) override;

    /// Does something as if one event had led to it.
    template <typename Act>
    void step(Act act)
    {
        const double begun = now();
        ++depth_;
        act();
        ended(begun);
    }

    /// So many paint events there have been.
    int paints() const { return paints_; }
    /// The longest step since this was last asked for, in milliseconds.
    double takeLongest();

    /// Milliseconds of processor time of the main thread, which other programs do not lengthen.
    static double now();

private:
    void ended(double begun);

    int depth_ = 0;
    int paints_ = 0;
    double longest_ = 0;
};

/// What the main thread spends on each thing that happens, beside a benchmark's own figures: "longest" is the
/// dearest of all that happened, from its beginning to its frame, and "step" the longest single event on the
/// way there, before which no other input is heard. Both in milliseconds of processor time.
class MainThread
{
public:
    explicit MainThread(benchmark::State& state);
    ~MainThread();

    /// Does something and what follows from it, up to the painted frame.
    template <typename Act, typename Follow>
    void measure(Act act, Follow follow)
    {
        const double begun = BenchmarkApplication::now();
        const int paints = application_.paints();
        application_.takeLongest();
        application_.step(act);
        follow();
        finish(begun, paints);
    }

    template <typename Act>
    void measure(Act act)
    {
        measure(act, settle);
    }

private:
    void finish(double begun, int paints);

    benchmark::State& state_;
    BenchmarkApplication& application_;
    double longest_ = 0;
    double longestStep_ = 0;
};
