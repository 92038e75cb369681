#include "Net/ConnectionThreads.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <future>
#include <sys/resource.h>

#if defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#define TAKES_MEMORY_BY_ITSELF
#endif
#endif

namespace {

/// Ends with 0 when every job was done although no more threads could be started than the first.
[[noreturn]] void workWithoutRoomForThreads()
{
    constexpr int jobs = 40;
    std::atomic<int> done = 0;
    bridge::ConnectionThreads threads(64);
    std::promise<void> isThere;
    std::promise<void> goOn;
    threads.enqueue([&] {
        isThere.set_value();
        goOn.get_future().wait();
        ++done;
    });
    isThere.get_future().wait();
    // The stack of a thread needs memory of its own, which is not to be had any more.
    const rlimit none{1, 1};
    setrlimit(RLIMIT_AS, &none);
    for (int job = 1; job < jobs; ++job)
        threads.enqueue([&] { ++done; });
    goOn.set_value();
    threads.shutdown();
    std::_Exit(done == jobs ? 0 : 1);
}

TEST(ConnectionThreadsDeathTest, DoAllTheWorkWhereNoMoreThreadsAreToBeHad)
{
#ifdef TAKES_MEMORY_BY_ITSELF
    GTEST_SKIP() << "The sanitizer's own allocator needs room that this test takes away.";
#endif
    testing::GTEST_FLAG(death_test_style) = "threadsafe";
    EXPECT_EXIT(workWithoutRoomForThreads(), testing::ExitedWithCode(0), "");
}

} // namespace
