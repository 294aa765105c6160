#pragma once

#include <curl/curl.h>

#include <mutex>

namespace ostrel {

/// Wakes the I/O thread from its wait; does nothing once that has ended. Any thread.
class IoWaker
{
public:
    void wake()
    {
        const std::lock_guard lock(m_mutex);
        wakeLocked();
    }

    /// The thread waits for @p multi from now on, null if for nothing any more. Wakes it, for those
    /// who have just woken the one before.
    void setMulti(CURLM *multi)
    {
        const std::lock_guard lock(m_mutex);
        m_multi = multi;
        wakeLocked();
    }

private:
    void wakeLocked()
    {
        if (m_multi != nullptr)
            curl_multi_wakeup(m_multi);
    }

    std::mutex m_mutex;
    CURLM *m_multi = nullptr;
};

} // namespace ostrel
