#pragma once

#include "CurlHandles.h"

#include <QString>

#include <array>
#include <chrono>

namespace ostrel {

struct TrustStore;

/// One exchange with the network, from its admission to its end. Belongs to the I/O thread once it
/// has been submitted; whoever destroys it before its end cancels it.
class Transfer
{
public:
    using Clock = std::chrono::steady_clock;

    /// A @p timeout that is no time at all is the shortest one, never "none"; one of more than 24
    /// days is 24 days.
    explicit Transfer(std::chrono::milliseconds timeout);
    Transfer(const Transfer &) = delete;
    Transfer &operator=(const Transfer &) = delete;
    virtual ~Transfer() = default;

    /// Starts the clock and sets up a new handle, which belongs to the transfer. Null where there
    /// is no memory for one.
    [[nodiscard]] CURL *begin(const TrustStore &trustStore);

    /// As begin(), after the handle of the last beginning has left its multi handle. Only the
    /// first time does the clock start anew: afterwards the rest of the time-out has to do.
    [[nodiscard]] CURL *beginAnew(const TrustStore &trustStore);

    /// Whether the time-out has passed.
    [[nodiscard]] bool isOverdue() const { return Clock::now() - m_clockStart > m_timeout; }

    /// A turn of the I/O thread's loop begins.
    virtual void didBeginTurn() {}

    /// When it wants a turn even if nothing happens until then.
    [[nodiscard]] virtual Clock::time_point nextTurn() const { return Clock::time_point::max(); }

    /// Reports the outcome to whoever waits for it. The transfer was found to have ended at @p now.
    void end(CURLcode code, Clock::time_point now);

    /// Called after end(), until it's true: whether the outcome is reported. It may have to wait
    /// for what other threads do with what has come.
    [[nodiscard]] virtual bool conclude(Clock::time_point now)
    {
        Q_UNUSED(now)
        return true;
    }

protected:
    /// Sets the options of @p handle, beyond those that every transfer has, for a first or another
    /// beginning.
    virtual void setUp(CURL *handle, const TrustStore &trustStore) = 0;
    virtual void report(CURLcode code, std::chrono::microseconds elapsed) = 0;

    [[nodiscard]] CURL *handle() const { return m_handle.get(); }
    [[nodiscard]] std::chrono::milliseconds timeout() const { return m_timeout; }
    [[nodiscard]] Clock::time_point deadline() const { return m_clockStart + m_timeout; }
    /// Has the library wait so much longer than the time-out.
    void setExtraTime(std::chrono::milliseconds extra);
    /// What went wrong, in the library's words.
    [[nodiscard]] QString errorText(CURLcode code) const;

private:
    [[nodiscard]] CURL *beginAt(Clock::time_point now, const TrustStore &trustStore);
    void setCommonOptions(std::chrono::milliseconds timeout);
    [[nodiscard]] std::chrono::milliseconds timeLeft() const;
    [[nodiscard]] std::chrono::microseconds elapsed(CURLcode code, Clock::time_point now) const;

    std::chrono::milliseconds m_timeout;
    Clock::time_point m_clockStart;
    Clock::time_point m_lastBeginning;
    bool m_hasBegunAnew = false;
    // Outlives the handle, which writes to it.
    std::array<char, CURL_ERROR_SIZE> m_errorBuffer{};
    CurlEasy m_handle;
};

} // namespace ostrel
