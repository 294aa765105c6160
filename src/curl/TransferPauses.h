#pragma once

#include <chrono>
#include <optional>

namespace ostrel {

/// The pauses of one transfer: we make them while its body comes faster than it is read, and none
/// of that time is the site's. They are bounded, so that every transfer ends in time: beyond the
/// bound, what comes goes unread. I/O thread.
class TransferPauses
{
public:
    using Clock = std::chrono::steady_clock;

    /// How long after the time-out a transfer may still end, whose pauses have held it up.
    static constexpr std::chrono::milliseconds grace{250};

    explicit TransferPauses(Clock::duration timeout)
        : m_timeout(timeout)
    {
    }

    void begin(Clock::time_point now) { m_since = now; }
    void end(Clock::time_point now);
    [[nodiscard]] bool isOn() const { return m_since.has_value(); }
    [[nodiscard]] bool hadAny() const { return m_before > Clock::duration::zero(); }

    /// All of them until @p now.
    [[nodiscard]] Clock::duration total(Clock::time_point now) const;
    /// How much longer than its time-out the transfer may take for those that have ended.
    [[nodiscard]] std::chrono::milliseconds extraTime() const;
    /// When the one of now has to end, where the time-out passes at @p deadline: together they take
    /// a quarter of it. A body whose length isn't announced may be nearly at its end, or have none;
    /// from the middle of the time-out on, it is held up only for what the grace makes up for.
    [[nodiscard]] Clock::time_point limit(Clock::time_point deadline, bool isLengthKnown) const;

private:
    Clock::duration m_timeout;
    Clock::duration m_before{0}; ///< All that have ended.
    std::optional<Clock::time_point> m_since;
};

} // namespace ostrel
