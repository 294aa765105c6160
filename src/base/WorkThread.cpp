#include "WorkThread.h"

#include <QDeadlineTimer>

#include <atomic>
#include <chrono>
#include <exception>

namespace ostrel {

namespace {

using namespace std::chrono_literals;

constexpr auto patienceAtTheEnd = 100ms;

std::atomic<bool> isOneLeftBehind = false;

QThread::Priority toThreadPriority(WorkThread::Priority priority)
{
    return priority == WorkThread::Priority::idle ? QThread::IdlePriority
                                                  : QThread::InheritPriority;
}

void doQuietly(WorkQueue::Work work)
{
    try {
        work();
    } catch (const std::exception &) {
        // Whoever waits for it learns of it from what the work holds, which goes now.
        return;
    }
}

} // namespace

void WorkQueue::post(Work work)
{
    {
        const std::lock_guard lock(m_mutex);
        if (m_isClosed)
            return;
        m_waiting.push_back(std::move(work));
    }
    m_hasChanged.notify_one();
}

void WorkQueue::serve()
{
    std::unique_lock lock(m_mutex);
    for (;;) {
        m_hasChanged.wait(lock, [&] { return m_isClosed || !m_waiting.empty(); });
        if (m_isClosed)
            return;
        Work work = std::move(m_waiting.front());
        m_waiting.pop_front();
        lock.unlock();
        doQuietly(std::move(work));
        lock.lock();
    }
}

void WorkQueue::close()
{
    std::deque<Work> dropped;
    {
        const std::lock_guard lock(m_mutex);
        m_isClosed = true;
        m_waiting.swap(dropped);
    }
    m_hasChanged.notify_one();
}

WorkThread::WorkThread(Priority priority)
    : m_queue(std::make_shared<WorkQueue>())
    , m_thread(QThread::create([queue = m_queue] { queue->serve(); }))
{
    m_thread->start(toThreadPriority(priority));
}

WorkThread::~WorkThread()
{
    m_queue->close();
    if (!m_thread->wait(QDeadlineTimer(patienceAtTheEnd))) {
        isOneLeftBehind = true;
        // It may not be destroyed while it runs.
        static_cast<void>(m_thread.release());
    }
}

bool WorkThread::isAnyLeftBehind()
{
    return isOneLeftBehind;
}

} // namespace ostrel
