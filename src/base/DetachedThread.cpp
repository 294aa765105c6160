#include "DetachedThread.h"

#include <atomic>
#include <system_error>
#include <thread>
#include <utility>

namespace ostrel {

namespace {

std::atomic<int> threadsAtWork = 0;

} // namespace

void startDetached(std::function<void()> work)
{
    ++threadsAtWork;
    try {
        std::thread([work = std::move(work)]() mutable {
            work();
            work = nullptr; // Destroying what it holds counts as its work.
            --threadsAtWork;
        }).detach();
    } catch (const std::system_error &) {
        --threadsAtWork;
        throw;
    }
}

bool isAnyDetachedThreadAtWork()
{
    return threadsAtWork > 0;
}

} // namespace ostrel
