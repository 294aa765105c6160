#pragma once

#include <chrono>
#include <optional>

namespace ostrel {

/// The pauses of one transfer: we pause it while its body arrives faster than it is read, and none
/// of that time is charged to the site. Pauses are bounded, so that every transfer ends in time:
/// beyond the bound, arriving bytes aren't read. I/O thread.
class TransferPauses
{
public:
    using Clock = std::chrono::steady_clock;

    /// How long after the time-out a transfer may still end if pauses have delayed it.
    static constexpr std::chrono::milliseconds grace{250};

    explicit TransferPauses(Clock::duration timeout)
        : m_timeout(timeout)
    {
    }

    void begin(Clock::time_point now) { m_since = now; }
    void end(Clock::time_point now);
    [[nodiscard]] bool isOn() const { return m_since.has_value(); }
    [[nodiscard]] bool hadAny() const { return m_before > Clock::duration::zero(); }

    /// The total of all pauses until @p now.
    [[nodiscard]] Clock::duration total(Clock::time_point now) const;
    /// How much longer than its time-out the transfer may take because of the pauses that have
    /// ended.
    [[nodiscard]] std::chrono::milliseconds extraTime() const;
    /// When the current pause must end, if the time-out passes at @p deadline: all pauses together
    /// take at most a quarter of the time-out. A body without an announced length may be near its
    /// end, or have none; from the middle of the time-out on, it is paused only for as long as the
    /// grace compensates.
    [[nodiscard]] Clock::time_point limit(Clock::time_point deadline, bool isLengthKnown) const;

private:
    Clock::duration m_timeout;
    Clock::duration m_before{0}; ///< The total of those that have ended.
    std::optional<Clock::time_point> m_since;
};

} // namespace ostrel
