#pragma once

#include "CurlHandles.h"

#include <deque>
#include <functional>
#include <mutex>

namespace ostrel {

/// What other threads have for the I/O thread, and the multi handle that it waits with. Outlives
/// that thread wherever another still holds it.
class Inbox
{
public:
    /// Runs on the I/O thread, between two turns of its loop.
    using Message = std::function<void()>;

    /// Any thread. Dropped where the I/O thread has ended.
    void post(Message message);
    /// Has the thread make a turn of its loop. Any thread.
    void wake();

    // The rest is the I/O thread's.

    /// Null before replaceMulti().
    [[nodiscard]] CURLM *multi() const { return m_multi.get(); }
    void replaceMulti();
    [[nodiscard]] std::deque<Message> take();
    /// The thread ends: nothing more is taken.
    void close();

private:
    void wakeLocked();

    std::mutex m_mutex; ///< Guards m_messages, and m_multi against being replaced while woken.
    std::deque<Message> m_messages;
    bool m_isClosed = false;
    CurlMulti m_multi;
};

} // namespace ostrel
