#pragma once

#include "CurlHandles.h"

#include <deque>
#include <functional>
#include <mutex>

namespace ostrel {

/// Other threads' messages for the I/O thread, and the multi handle that it waits with. Outlives
/// that thread if another thread still holds it.
class Inbox
{
public:
    /// Runs on the I/O thread, between two turns of its loop.
    using Message = std::function<void()>;

    /// Any thread. The message is dropped if the I/O thread has ended.
    void post(Message message);
    /// Makes the thread run a turn of its loop. Any thread.
    void wake();

    // The functions below are for the I/O thread only.

    /// Null before replaceMulti().
    [[nodiscard]] CURLM *multi() const { return m_multi.get(); }
    void replaceMulti();
    [[nodiscard]] std::deque<Message> take();
    /// The thread ends: further messages are dropped.
    void close();

private:
    void wakeLocked();

    std::mutex m_mutex; ///< Guards m_messages, and m_multi against being replaced while woken.
    std::deque<Message> m_messages;
    bool m_isClosed = false;
    CurlMulti m_multi;
};

} // namespace ostrel
