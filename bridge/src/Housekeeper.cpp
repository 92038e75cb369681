#include "Housekeeper.h"

#include <exception>
#include <iostream>

namespace bridge {

Housekeeper::Housekeeper(std::function<void()> work, std::chrono::seconds interval)
    : work_(std::move(work)), interval_(interval), thread_([this] { keepHouse(); })
{ }

Housekeeper::~Housekeeper()
{
    {
        const std::lock_guard lock(mutex_);
        isOver_ = true;
    }
    wake_.notify_one();
    thread_.join();
}

void Housekeeper::keepHouse()
{
    std::unique_lock lock(mutex_);
    while (!isOver_) {
        lock.unlock();
        try {
            work_();
        } catch (const std::exception&) {
            std::cerr << "Tidying up failed; it will be tried again." << std::endl;
        }
        lock.lock();
        wake_.wait_for(lock, interval_, [this] { return isOver_; });
    }
}

} // namespace bridge
