#pragma once

#include <algorithm>
#include <atomic>
#include <chrono>
#include <thread>

namespace ostrel::test {

/// Measures, while it lives, how late this computer wakes a thread at worst, so that a bound on a
/// duration holds on a busy computer too.
class LatenessMeter
{
public:
    [[nodiscard]] std::chrono::milliseconds worst() const { return m_worst; }

private:
    using Clock = std::chrono::steady_clock;

    void measure(const std::stop_token &end)
    {
        constexpr std::chrono::milliseconds nap(5);
        while (!end.stop_requested()) {
            const Clock::time_point due = Clock::now() + nap;
            std::this_thread::sleep_until(due);
            const auto late = std::chrono::ceil<std::chrono::milliseconds>(Clock::now() - due);
            m_worst = std::max(m_worst.load(), late);
        }
    }

    std::atomic<std::chrono::milliseconds> m_worst{};
    std::jthread m_thread{[this](const std::stop_token &end) { measure(end); }};
};

} // namespace ostrel::test
