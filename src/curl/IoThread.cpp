#include "IoThread.h"

#include <algorithm>
#include <csignal>
#include <limits>
#include <utility>

namespace ostrel {

using namespace std::chrono;

namespace {

/// Setting up a transfer takes some 0.1 ms, during which no other is served. Few enough at a time
/// that waiting for them doesn't show in a measured time, and enough that the turns of the loop,
/// each of which visits every transfer, don't cost more than the transfers.
constexpr int admissionsPerTurn = 4;

/// Ready sockets take precedence over admissions, but may not block them for ever.
constexpr auto longestWithoutAdmission = milliseconds(5);

void initializeLibrary()
{
    static const CURLcode code = curl_global_init(CURL_GLOBAL_DEFAULT);
    Q_UNUSED(code)
}

/// If a peer closes a connection, its transfer gets an error, instead of a signal that ends the
/// program.
void blockBrokenPipeSignal()
{
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGPIPE);
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
}

std::size_t atLeastOne(int bound)
{
    return static_cast<std::size_t>(std::max(bound, 1));
}

} // namespace

IoThread::IoThread(IoThreadConfiguration configuration)
    : m_configuration(std::move(configuration))
    , m_trustedCertificates(std::make_shared<TrustedCertificates>(m_configuration.trustStore))
    , m_surroundings{.certificates = nullptr, .isPublicAddress = m_configuration.isPublicAddress}
    , m_admissions(m_inbox, atLeastOne(m_configuration.maxConcurrentLookUps))
{
    m_thread = std::thread([this] { run(); });
}

IoThread::~IoThread()
{
    m_inbox->post([this] { m_shallStop = true; });
    m_thread.join();
}

void IoThread::submit(std::unique_ptr<Transfer> transfer)
{
    // Shared, since messages are copyable.
    const auto held = std::make_shared<std::unique_ptr<Transfer>>(std::move(transfer));
    m_inbox->post([this, held] { queue(std::move(*held)); });
}

void IoThread::dropConnections()
{
    if (!m_shallDrop.exchange(true))
        m_inbox->post([this] { dropAll(); });
}

void IoThread::run()
{
    blockBrokenPipeSignal();
    // Initialized on this thread, since it takes milliseconds, which would delay the program's
    // start.
    initializeLibrary();
    m_inbox->replaceMulti();
    while (!m_shallStop) {
        const int readySockets = waitForWork();
        readMessages();
        startLookedUp();
        if (readySockets == 0 || Clock::now() - m_lastAdmission > longestWithoutAdmission)
            admitSome();
        serve();
        endFinished();
        concludeEnded();
    }
    dropAll();
    m_inbox->close();
}

void IoThread::readMessages()
{
    for (const Inbox::Message &message : m_inbox->take()) {
        if (m_shallStop)
            return;
        message();
    }
}

void IoThread::queue(std::unique_ptr<Transfer> transfer)
{
    if (!transfer->needsCertificates()) {
        m_admissions.push(std::move(transfer));
        return;
    }
    m_needingCertificates.push_back(std::move(transfer));
    readCertificates();
}

void IoThread::readCertificates()
{
    // A transfer that arrives during a reading gets a reading of its own, so that it sees later
    // changes.
    m_certificateReader.post([this, inbox = m_inbox, certificates = m_trustedCertificates] {
        TrustedCertificates::Store store = certificates->current();
        inbox->post([this, store] { didReadCertificates(store); });
    });
}

void IoThread::didReadCertificates(TrustedCertificates::Store certificates)
{
    m_surroundings.certificates = std::move(certificates);
    if (m_needingCertificates.empty())
        return; // The transfer that they were read for has been dropped.
    std::unique_ptr<Transfer> transfer = std::move(m_needingCertificates.front());
    m_needingCertificates.pop_front();
    m_admissions.push(std::move(transfer));
}

void IoThread::dropAll()
{
    m_shallDrop = false;
    for (const auto &[handle, transfer] : m_running)
        curl_multi_remove_handle(m_inbox->multi(), handle);
    m_running.clear();
    m_ended.clear();
    m_admissions.clear();
    m_needingCertificates.clear();
}

void IoThread::serve()
{
    for (const auto &[handle, transfer] : m_running)
        transfer->didBeginTurn();
    int stillRunning = 0;
    curl_multi_perform(m_inbox->multi(), &stillRunning);
}

void IoThread::endFinished()
{
    // Read once for all: the time it takes to end one transfer isn't the next one's.
    const auto now = Clock::now();
    int messagesLeft = 0;
    while (const CURLMsg *message = curl_multi_info_read(m_inbox->multi(), &messagesLeft)) {
        // The message becomes invalid when the handle is removed.
        const CURLcode code = message->data.result;
        auto finished = m_running.extract(message->easy_handle);
        curl_multi_remove_handle(m_inbox->multi(), finished.key());
        if (finished.mapped()->goesOn(code))
            queue(std::move(finished.mapped()));
        else
            end(std::move(finished.mapped()), code, now);
    }
}

void IoThread::end(std::unique_ptr<Transfer> transfer, CURLcode code, Clock::time_point now)
{
    transfer->end(code, now);
    if (!transfer->conclude(now))
        m_ended.push_back(std::move(transfer));
}

void IoThread::concludeEnded()
{
    const auto now = Clock::now();
    std::erase_if(m_ended, [now](const auto &transfer) { return transfer->conclude(now); });
}

int IoThread::waitForWork()
{
    int readySockets = 0;
    curl_multi_poll(m_inbox->multi(), nullptr, 0, patience(), &readySockets);
    return readySockets;
}

int IoThread::patience() const
{
    if (hasPlace() && m_admissions.hasNext())
        return 0;
    constexpr milliseconds longest(std::numeric_limits<int>::max());
    const auto next = nextTurn();
    const auto left = next == Clock::time_point::max() ? longest : next - Clock::now();
    const auto patience = std::clamp<Clock::duration>(left, milliseconds(0), longest);
    return static_cast<int>(ceil<milliseconds>(patience).count());
}

/// When a turn of the loop is needed even if nothing happens until then.
IoThread::Clock::time_point IoThread::nextTurn() const
{
    auto next = m_admissions.nextDeadline();
    for (const auto &[handle, transfer] : m_running)
        next = std::min(next, transfer->nextTurn());
    for (const auto &transfer : m_ended)
        next = std::min(next, transfer->nextTurn());
    return next;
}

bool IoThread::hasPlace() const
{
    return m_running.size() + m_admissions.lookingUpCount() + m_ended.size() <
           atLeastOne(m_configuration.maxConcurrentTransfers);
}

void IoThread::admitSome()
{
    for (int i = 0; i < admissionsPerTurn && hasPlace(); ++i) {
        std::unique_ptr<Transfer> transfer = m_admissions.takeNext();
        if (!transfer)
            return;
        admit(std::move(transfer));
    }
}

void IoThread::admit(std::unique_ptr<Transfer> transfer)
{
    transfer->admit();
    m_lastAdmission = transfer->admission();
    if (transfer->names().empty())
        start(std::move(transfer), {});
    else
        m_admissions.lookUp(std::move(transfer));
}

void IoThread::startLookedUp()
{
    for (AdmissionQueue::LookingUp &lookedUp : m_admissions.takeLookedUp())
        start(std::move(lookedUp.transfer), lookedUp.lookUps);
}

void IoThread::start(std::unique_ptr<Transfer> transfer, const Transfer::LookUps &lookUps)
{
    CURL *handle = transfer->begin(m_surroundings, lookUps);
    if (handle == nullptr || curl_multi_add_handle(m_inbox->multi(), handle) != CURLM_OK)
        end(std::move(transfer), CURLE_OUT_OF_MEMORY, Clock::now());
    else
        m_running.emplace(handle, std::move(transfer));
}

} // namespace ostrel
