#pragma once

#include <sanitizer/allocator_interface.h>

#include <algorithm>
#include <cstddef>
#include <new>

/// Counts the memory that is held more than at the begin of a measurement, by everything in this process, and
/// remembers the most. Works where the address sanitizer allocates.
class AllocationMeter
{
public:
    static void install()
    {
        static const int installed = __sanitizer_install_malloc_and_free_hooks(
            [](const volatile void*, std::size_t size) { add(static_cast<std::ptrdiff_t>(size)); },
            [](const volatile void* block) {
                if (block)
                    add(-static_cast<std::ptrdiff_t>(
                        __sanitizer_get_allocated_size(const_cast<const void*>(block))));
            });
        if (installed == 0)
            __builtin_trap();
    }

    static void begin()
    {
        isOn_ = true;
        held_ = most_ = 0;
    }
    static void end() { isOn_ = false; }

    static std::ptrdiff_t most() { return most_; }

    /// What is done while this lives is not counted.
    class Pause
    {
    public:
        Pause() : wasOn_(isOn_) { isOn_ = false; }
        Pause(const Pause&) = delete;
        ~Pause() { isOn_ = wasOn_; }

    private:
        bool wasOn_;
    };

private:
    static void add(std::ptrdiff_t bytes)
    {
        if (!isOn_)
            return;
        held_ += bytes;
        most_ = std::max(most_, held_);
    }

    static inline bool isOn_ = false;
    static inline std::ptrdiff_t held_ = 0;
    static inline std::ptrdiff_t most_ = 0;
};
