#include "IoThreadWorker.h"

#include <algorithm>
#include <csignal>
#include <iterator>
#include <limits>
#include <utility>

namespace ostrel {

using namespace std::chrono;
using namespace std::chrono_literals;

namespace {

/// Setting up a transfer takes some 0.1 ms, during which no other is served: so few at a time that
/// waiting for them doesn't show in a measured time, and so many that the turns of the loop, each
/// of which looks at every transfer, don't cost more than the transfers.
constexpr int admissionsPerTurn = 4;

/// Ready sockets go before admissions, but may not hold them up for ever.
constexpr auto longestWithoutAdmission = milliseconds(5);

void initializeLibrary()
{
    static const CURLcode code = curl_global_init(CURL_GLOBAL_DEFAULT);
    Q_UNUSED(code)
}

/// A peer that has gone is an error of its own transfer's, not the end of the program.
void blockBrokenPipeSignal()
{
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGPIPE);
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
}

} // namespace

IoThread::Worker::Worker(IoThreadConfiguration configuration)
    : m_configuration(std::move(configuration))
{
    m_thread = std::thread([this] { run(); });
}

IoThread::Worker::~Worker()
{
    {
        const std::lock_guard lock(m_mutex);
        m_requests.shallStop = true;
    }
    m_waker->wake();
    m_thread.join();
}

void IoThread::Worker::submit(std::unique_ptr<Transfer> transfer)
{
    {
        const std::lock_guard lock(m_mutex);
        m_requests.submissions.push_back(std::move(transfer));
    }
    m_waker->wake();
}

void IoThread::Worker::renewConnections()
{
    {
        const std::lock_guard lock(m_mutex);
        m_requests.shallRenew = true;
    }
    m_waker->wake();
}

void IoThread::Worker::run()
{
    blockBrokenPipeSignal();
    // Here, since it takes milliseconds, which the start of a program doesn't have.
    initializeLibrary();
    replaceMulti();
    for (;;) {
        const int readySockets = waitForWork();
        Requests requests = takeRequests();
        if (requests.shallStop)
            break;
        if (requests.shallRenew)
            renew();
        queue(std::move(requests.submissions));
        if (readySockets == 0 || Clock::now() - m_lastAdmission > longestWithoutAdmission)
            admitSome();
        serve();
        endFinished();
        concludeEnded();
    }
    m_waker->setMulti(nullptr);
    for (const auto &[handle, transfer] : m_running)
        curl_multi_remove_handle(m_multi.get(), handle);
    m_running.clear();
    m_ended.clear();
    m_waiting.clear();
}

IoThread::Worker::Requests IoThread::Worker::takeRequests()
{
    const std::lock_guard lock(m_mutex);
    return std::exchange(m_requests, {});
}

void IoThread::Worker::queue(std::deque<std::unique_ptr<Transfer>> submissions)
{
    std::move(submissions.begin(), submissions.end(), std::back_inserter(m_waiting));
}

void IoThread::Worker::renew()
{
    auto interrupted = std::exchange(m_running, {});
    for (const auto &[handle, transfer] : interrupted)
        curl_multi_remove_handle(m_multi.get(), handle);
    replaceMulti();
    for (auto &[handle, transfer] : interrupted)
        startAnew(std::move(transfer));
}

void IoThread::Worker::replaceMulti()
{
    CurlMulti multi(curl_multi_init());
    // Whoever has asked for something since the requests were taken has woken the old one, or none.
    m_waker->setMulti(multi.get());
    m_multi = std::move(multi);
}

void IoThread::Worker::startAnew(std::unique_ptr<Transfer> transfer)
{
    // Renewals that follow each other more closely than the library's shortest time-out must not
    // keep it alive.
    if (transfer->isOverdue()) {
        end(std::move(transfer), CURLE_OPERATION_TIMEDOUT, Clock::now());
        return;
    }
    CURL *handle = transfer->beginAnew(m_configuration.trustStore);
    start(std::move(transfer), handle);
}

void IoThread::Worker::serve()
{
    for (const auto &[handle, transfer] : m_running)
        transfer->didBeginTurn();
    int stillRunning = 0;
    curl_multi_perform(m_multi.get(), &stillRunning);
}

void IoThread::Worker::endFinished()
{
    // Once for all: ending one takes time that isn't the next one's.
    const auto now = Clock::now();
    int messagesLeft = 0;
    while (const CURLMsg *message = curl_multi_info_read(m_multi.get(), &messagesLeft)) {
        // The message dies with the handle's membership.
        const CURLcode code = message->data.result;
        auto finished = m_running.extract(message->easy_handle);
        curl_multi_remove_handle(m_multi.get(), finished.key());
        end(std::move(finished.mapped()), code, now);
    }
}

void IoThread::Worker::end(std::unique_ptr<Transfer> transfer, CURLcode code, Clock::time_point now)
{
    transfer->end(code, now);
    if (!transfer->conclude(now))
        m_ended.push_back(std::move(transfer));
}

void IoThread::Worker::concludeEnded()
{
    const auto now = Clock::now();
    std::erase_if(m_ended, [now](const auto &transfer) { return transfer->conclude(now); });
}

int IoThread::Worker::waitForWork()
{
    int readySockets = 0;
    curl_multi_poll(m_multi.get(), nullptr, 0, patience(), &readySockets);
    return readySockets;
}

/// In milliseconds, for the library.
int IoThread::Worker::patience() const
{
    if (canAdmit())
        return 0;
    auto next = Clock::time_point::max();
    for (const auto &[handle, transfer] : m_running)
        next = std::min(next, transfer->nextTurn());
    for (const auto &transfer : m_ended)
        next = std::min(next, transfer->nextTurn());
    constexpr milliseconds longest(std::numeric_limits<int>::max());
    const auto left = next == Clock::time_point::max() ? longest : next - Clock::now();
    return static_cast<int>(
        ceil<milliseconds>(std::clamp<Clock::duration>(left, 0ms, longest)).count());
}

bool IoThread::Worker::canAdmit() const
{
    const auto bound =
        static_cast<std::size_t>(std::max(m_configuration.maxConcurrentTransfers, 1));
    return !m_waiting.empty() && m_running.size() + m_ended.size() < bound;
}

void IoThread::Worker::admitSome()
{
    for (int i = 0; i < admissionsPerTurn && canAdmit(); ++i) {
        std::unique_ptr<Transfer> transfer = std::move(m_waiting.front());
        m_waiting.pop_front();
        admit(std::move(transfer));
    }
}

void IoThread::Worker::admit(std::unique_ptr<Transfer> transfer)
{
    m_lastAdmission = Clock::now();
    CURL *handle = transfer->begin(m_configuration.trustStore);
    start(std::move(transfer), handle);
}

void IoThread::Worker::start(std::unique_ptr<Transfer> transfer, CURL *handle)
{
    if (handle == nullptr || curl_multi_add_handle(m_multi.get(), handle) != CURLM_OK)
        end(std::move(transfer), CURLE_OUT_OF_MEMORY, Clock::now());
    else
        m_running.emplace(handle, std::move(transfer));
}

} // namespace ostrel
