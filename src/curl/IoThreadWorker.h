#pragma once

#include "CurlHandles.h"
#include "Inbox.h"
#include "IoThread.h"
#include "NameLookUps.h"
#include "Transfer.h"
#include "TrustedCertificates.h"
#include "WorkThread.h"

#include <atomic>
#include <chrono>
#include <deque>
#include <list>
#include <memory>
#include <thread>
#include <unordered_map>
#include <vector>

namespace ostrel {

/// The loop of the I/O thread. Other threads call the constructor, the destructor, submit() and
/// dropConnections(); everything else happens on the thread itself.
///
/// The way of a transfer: it waits for the certificates, if it needs them; it waits to be admitted;
/// its names are looked up; it runs; and goes back to the beginning if there is another hop.
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
    void dropConnections();
    /// For other threads that work for transfers; may outlive the worker.
    [[nodiscard]] std::shared_ptr<Inbox> inbox() const { return m_inbox; }

private:
    using Clock = Transfer::Clock;

    /// A transfer whose clock runs while its names are looked up.
    struct LookingUp
    {
        std::unique_ptr<Transfer> transfer;
        Transfer::LookUps lookUps;
    };

    void run();
    void readMessages();
    void queue(std::unique_ptr<Transfer> transfer);
    void dropAll();
    void serve();
    void endFinished();
    void end(std::unique_ptr<Transfer> transfer, CURLcode code, Clock::time_point now);
    void concludeEnded();
    /// The number of sockets that are ready, or none when the time has come for something else.
    [[nodiscard]] int waitForWork();
    /// In milliseconds, for the library.
    [[nodiscard]] int patience() const;
    [[nodiscard]] Clock::time_point nextTurn() const;

    void readCertificates();
    void didReadCertificates(TrustedCertificates::Store certificates);
    void wait(std::unique_ptr<Transfer> transfer);

    [[nodiscard]] bool canAdmit(const Transfer &transfer) const;
    /// The first of those that wait that can be admitted.
    [[nodiscard]] std::deque<std::unique_ptr<Transfer>>::const_iterator nextToAdmit() const;
    void admitSome();
    void admit(std::unique_ptr<Transfer> transfer);

    [[nodiscard]] Transfer::LookUps lookUp(const Transfer::Names &names);
    void goOnWithLookUps();
    /// False where it has to go on looking up.
    [[nodiscard]] bool takeLookUps(LookingUp &waiting);
    void repeatFailedLookUps(LookingUp &waiting);
    void start(std::unique_ptr<Transfer> transfer, const Transfer::LookUps &lookUps);

    const IoThreadConfiguration m_configuration;

    std::shared_ptr<Inbox> m_inbox = std::make_shared<Inbox>();
    std::atomic<bool> m_shallDrop = false; ///< Whether a message says so. Any thread.
    bool m_shallStop = false;

    std::shared_ptr<TrustedCertificates> m_trustedCertificates; ///< Of m_certificateReader.
    Surroundings m_surroundings;
    NameLookUps m_nameLookUps;

    std::deque<std::unique_ptr<Transfer>> m_needingCertificates;
    std::deque<std::unique_ptr<Transfer>> m_waiting;
    std::list<LookingUp> m_lookingUp;
    std::unordered_map<CURL *, std::unique_ptr<Transfer>> m_running;
    std::vector<std::unique_ptr<Transfer>> m_ended; ///< Which have something to wait for yet.
    Clock::time_point m_lastAdmission;

    WorkThread m_certificateReader;
    std::thread m_thread;
};

} // namespace ostrel
