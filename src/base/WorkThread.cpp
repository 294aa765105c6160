#include "WorkThread.h"

#include <QDeadlineTimer>

#include <chrono>
#include <exception>
#include <vector>

namespace ostrel {

namespace {

using namespace std::chrono_literals;

constexpr auto patienceAtTheEnd = 100ms;

std::mutex leftBehindMutex;

/// Threads that were still running when waiting for them timed out. They may not be destroyed while
/// they run, and stay reachable so that leak checkers don't report them.
std::vector<std::unique_ptr<QThread>> &leftBehind()
{
    static auto &threads = *new std::vector<std::unique_ptr<QThread>>;
    return threads;
}

void leaveBehind(std::unique_ptr<QThread> thread)
{
    const std::lock_guard lock(leftBehindMutex);
    leftBehind().push_back(std::move(thread));
}

void doQuietly(const WorkQueue::Work &work)
{
    try {
        work();
    } catch (const std::exception &) {
        // Whoever waits for the work is notified by what it holds, which is destroyed next.
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
        doQuietly(work);
        work = nullptr; // Destroys what it holds before waiting for the next.
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

WorkThread::WorkThread(Work prepare)
    : m_queue(std::make_shared<WorkQueue>())
    , m_thread(QThread::create([queue = m_queue] { queue->serve(); }))
{
    if (prepare)
        post(std::move(prepare));
    m_thread->start();
}

WorkThread::~WorkThread()
{
    m_queue->close();
    if (!m_thread->wait(QDeadlineTimer(patienceAtTheEnd)))
        leaveBehind(std::move(m_thread));
}

bool WorkThread::isAnyLeftBehind()
{
    const std::lock_guard lock(leftBehindMutex);
    return !leftBehind().empty();
}

} // namespace ostrel
