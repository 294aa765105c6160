#pragma once

#include "AdmissionQueue.h"
#include "CurlHandles.h"
#include "Inbox.h"
#include "IoThreadConfiguration.h"
#include "Transfer.h"
#include "TrustedCertificates.h"
#include "WorkThread.h"

#include <atomic>
#include <chrono>
#include <deque>
#include <memory>
#include <thread>
#include <unordered_map>
#include <vector>

namespace ostrel {

/// The one thread on which all of the network's work is done, and measured.
///
/// The steps of a transfer: it waits for the certificates, if it needs them; it waits for
/// admission; its names are looked up; it runs; and it starts over if there is another hop. A
/// bounded number of transfers runs at once, and the clock of each starts when it is admitted.
class IoThread
{
public:
    explicit IoThread(IoThreadConfiguration configuration = {});
    /// Destroys every transfer, and then ends the thread.
    ~IoThread();
    IoThread(const IoThread &) = delete;
    IoThread &operator=(const IoThread &) = delete;

    /// Any thread.
    void submit(std::unique_ptr<Transfer> transfer);
    /// See Network::dropConnections(). Any thread.
    void dropConnections();
    /// For other threads that work for transfers; may outlive the I/O thread.
    [[nodiscard]] std::shared_ptr<Inbox> inbox() const { return m_inbox; }

private:
    using Clock = Transfer::Clock;

    // The functions below run on the thread itself.

    void run();
    void readMessages();
    void queue(std::unique_ptr<Transfer> transfer);
    void dropAll();
    void serve();
    void endFinished();
    void end(std::unique_ptr<Transfer> transfer, CURLcode code, Clock::time_point now);
    void concludeEnded();
    /// Waits, and returns the number of ready sockets; 0 if something else is due.
    [[nodiscard]] int waitForWork();
    /// How long to wait, in milliseconds.
    [[nodiscard]] int patience() const;
    [[nodiscard]] Clock::time_point nextTurn() const;

    void readCertificates();
    void didReadCertificates(TrustedCertificates::Store certificates);

    [[nodiscard]] bool hasPlace() const;
    void admitSome();
    void admit(std::unique_ptr<Transfer> transfer);
    void startLookedUp();
    void start(std::unique_ptr<Transfer> transfer, const Transfer::LookUps &lookUps);

    const IoThreadConfiguration m_configuration;

    std::shared_ptr<Inbox> m_inbox = std::make_shared<Inbox>();
    std::atomic<bool> m_shallDrop = false; ///< Whether a message to drop all is queued. Any thread.
    bool m_shallStop = false;

    std::shared_ptr<TrustedCertificates> m_trustedCertificates; ///< Used by m_certificateReader.
    Surroundings m_surroundings;

    std::deque<std::unique_ptr<Transfer>> m_needingCertificates;
    AdmissionQueue m_admissions;
    std::unordered_map<CURL *, std::unique_ptr<Transfer>> m_running;
    std::vector<std::unique_ptr<Transfer>> m_ended; ///< Those that still wait for something.
    Clock::time_point m_lastAdmission;

    WorkThread m_certificateReader;
    std::thread m_thread;
};

} // namespace ostrel
