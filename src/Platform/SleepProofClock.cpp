#include "SleepProofClock.h"

#include <QSocketNotifier>

#include <algorithm>

#include <sys/timerfd.h>
#include <time.h>
#include <unistd.h>

using namespace std::chrono;

namespace {

timespec timespecOf(SleepProofClock::Duration duration)
{
    const auto whole = duration_cast<seconds>(duration);
    timespec time{};
    time.tv_sec = whole.count();
    time.tv_nsec = nanoseconds(duration - whole).count();
    return time;
}

} // namespace

BootClock::BootClock() = default;

BootClock::~BootClock()
{
    cancelAlarm();
}

SleepProofClock::Duration BootClock::now() const
{
    timespec time{};
    clock_gettime(CLOCK_BOOTTIME, &time);
    return seconds(time.tv_sec) + duration_cast<Duration>(nanoseconds(time.tv_nsec));
}

void BootClock::setAlarm(Duration after)
{
    cancelAlarm();
    timer_ = timerfd_create(CLOCK_BOOTTIME, TFD_NONBLOCK | TFD_CLOEXEC);
    if (timer_ < 0)
        return;
    itimerspec once{};
    // A time of zero would mean that there is no alarm.
    once.it_value = timespecOf(std::max(after, Duration(1)));
    timerfd_settime(timer_, 0, &once, nullptr);
    watch_ = std::make_unique<QSocketNotifier>(timer_, QSocketNotifier::Read);
    connect(watch_.get(), &QSocketNotifier::activated, this, &BootClock::ring);
}

void BootClock::cancelAlarm()
{
    if (watch_) {
        watch_->setEnabled(false);
        // It may be telling of the alarm just now.
        watch_.release()->deleteLater();
    }
    if (timer_ >= 0)
        close(std::exchange(timer_, -1));
}

void BootClock::ring()
{
    cancelAlarm();
    emit rang();
}
