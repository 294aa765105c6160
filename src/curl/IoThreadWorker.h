#pragma once

#include "CurlHandles.h"
#include "IoThread.h"
#include "IoWaker.h"
#include "Transfer.h"

#include <chrono>
#include <deque>
#include <memory>
#include <mutex>
#include <thread>
#include <unordered_map>
#include <vector>

namespace ostrel {

/// The loop of the I/O thread. Other threads call the constructor, the destructor, submit() and
/// renewConnections(); everything else happens on the thread itself.
class IoThread::Worker
{
public:
    explicit Worker(IoThreadConfiguration configuration);
    ~Worker();
    Worker(const Worker &) = delete;
    Worker &operator=(const Worker &) = delete;

    /// Any thread.
    void submit(std::unique_ptr<Transfer> transfer);
    /// Any thread.
    void renewConnections();
    /// For other threads that work for transfers; may outlive the worker.
    [[nodiscard]] std::shared_ptr<IoWaker> waker() const { return m_waker; }

private:
    using Clock = Transfer::Clock;

    /// What other threads ask for, between two turns of the loop.
    struct Requests
    {
        std::deque<std::unique_ptr<Transfer>> submissions;
        bool shallRenew = false;
        bool shallStop = false;
    };

    void run();
    void replaceMulti();
    [[nodiscard]] Requests takeRequests();
    void queue(std::deque<std::unique_ptr<Transfer>> submissions);
    void renew();
    void startAnew(std::unique_ptr<Transfer> transfer);
    void serve();
    void endFinished();
    void end(std::unique_ptr<Transfer> transfer, CURLcode code, Clock::time_point now);
    void concludeEnded();
    /// The number of sockets that are ready, or none when the time has come for something else.
    [[nodiscard]] int waitForWork();
    [[nodiscard]] int patience() const;
    [[nodiscard]] bool canAdmit() const;
    void admitSome();
    void admit(std::unique_ptr<Transfer> transfer);
    void start(std::unique_ptr<Transfer> transfer, CURL *handle);

    const IoThreadConfiguration m_configuration;

    std::mutex m_mutex; ///< Guards m_requests.
    Requests m_requests;
    const std::shared_ptr<IoWaker> m_waker = std::make_shared<IoWaker>();
    CurlMulti m_multi;

    std::deque<std::unique_ptr<Transfer>> m_waiting;
    std::unordered_map<CURL *, std::unique_ptr<Transfer>> m_running;
    std::vector<std::unique_ptr<Transfer>> m_ended; ///< Which have something to wait for yet.
    Clock::time_point m_lastAdmission;

    std::thread m_thread;
};

} // namespace ostrel
