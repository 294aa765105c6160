#include "Inbox.h"

#include <utility>

namespace ostrel {

void Inbox::post(Message message)
{
    const std::lock_guard lock(m_mutex);
    if (m_isClosed)
        return;
    m_messages.push_back(std::move(message));
    wakeLocked();
}

void Inbox::wake()
{
    const std::lock_guard lock(m_mutex);
    wakeLocked();
}

void Inbox::wakeLocked()
{
    // Without a multi handle, the thread hasn't taken its first messages yet.
    if (m_multi)
        curl_multi_wakeup(m_multi.get());
}

void Inbox::replaceMulti()
{
    const std::lock_guard lock(m_mutex);
    m_multi.reset(curl_multi_init());
    // A message posted since the last take() has woken the old handle, or none.
    wakeLocked();
}

std::deque<Inbox::Message> Inbox::take()
{
    const std::lock_guard lock(m_mutex);
    return std::exchange(m_messages, {});
}

void Inbox::close()
{
    std::deque<Message> dropped;
    const std::lock_guard lock(m_mutex);
    m_isClosed = true;
    m_messages.swap(dropped);
    m_multi.reset();
}

} // namespace ostrel
