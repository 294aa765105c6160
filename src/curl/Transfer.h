#pragma once

#include "CurlHandles.h"
#include "IoThreadConfiguration.h"
#include "NameLookUps.h"
#include "TrustedCertificates.h"
#include "WebAddress.h"

#include <QString>

#include <array>
#include <chrono>
#include <memory>
#include <utility>
#include <vector>

namespace ostrel {

/// What the I/O thread provides to every transfer.
struct Surroundings
{
    /// As of the transfer's beginning, if it needs them. May be null: then nothing is trusted.
    TrustedCertificates::Store certificates;
    AddressJudge isPublicAddress;
};

/// One exchange with the network, from its admission to its end, in one hop or several. Belongs to
/// the I/O thread once it has been submitted; destroying it before its end cancels it.
///
/// Its clock runs from each admission until it ends or has to wait for another: time in our own
/// queue isn't counted.
class Transfer
{
public:
    using Clock = std::chrono::steady_clock;

    /// A name to look up before a hop can begin.
    struct Name
    {
        Place place;
        bool isProxy = false;
    };
    using Names = std::vector<Name>;
    using LookUps = std::vector<std::shared_ptr<const LookUp>>;

    /// A @p timeout of zero or less becomes the shortest one, never "none"; one of more than 24
    /// days becomes 24 days.
    explicit Transfer(std::chrono::milliseconds timeout);
    Transfer(const Transfer &) = delete;
    Transfer &operator=(const Transfer &) = delete;
    virtual ~Transfer() = default;

    /// The names that the next hop needs. Empty if it needs no resolver.
    [[nodiscard]] const Names &names() const { return m_names; }
    /// Whether the next hop may use TLS.
    [[nodiscard]] virtual bool needsCertificates() const { return false; }

    /// Starts the clock, or continues it.
    void admit();
    [[nodiscard]] Clock::time_point admission() const { return m_lastAdmission; }
    /// Whether the clock has run before.
    [[nodiscard]] bool isUnderWay() const { return m_spent > Clock::duration::zero(); }

    /// Sets up the next hop's handle, which belongs to the transfer. @p lookUps are finished, those
    /// of names() in their order. Null if there isn't enough memory.
    [[nodiscard]] CURL *begin(const Surroundings &surroundings, const LookUps &lookUps);

    /// A hop has ended with @p code, and its handle has been removed from its multi handle. True if
    /// another hop follows: the clock then stops until that is admitted.
    [[nodiscard]] bool goesOn(CURLcode code);

    /// When the time-out will have passed.
    [[nodiscard]] Clock::time_point deadline() const { return m_clockStart + m_timeout; }
    [[nodiscard]] bool isOverdue() const { return Clock::now() > deadline(); }

    /// A turn of the I/O thread's loop begins.
    virtual void didBeginTurn() {}

    /// When it needs a turn even if nothing happens until then.
    [[nodiscard]] virtual Clock::time_point nextTurn() const { return Clock::time_point::max(); }

    /// Reports the outcome. The transfer was found to have ended at @p now.
    void end(CURLcode code, Clock::time_point now);
    /// The same for a failed look-up, and for a time-out during a look-up.
    void endWithoutAddress(const Name &name);
    void endInLookUp();

    /// Called after end(), until it returns true: whether the outcome is reported. It may have to
    /// wait until other threads have processed what was received.
    [[nodiscard]] virtual bool conclude(Clock::time_point now)
    {
        Q_UNUSED(now)
        return true;
    }

protected:
    /// Sets options of @p handle, beyond those common to all transfers, once when the handle is
    /// created.
    virtual void setUp(CURL *handle) = 0;
    /// The same for each hop, the first one included.
    virtual void setUpHop(CURL *handle, const Surroundings &surroundings)
    {
        Q_UNUSED(handle)
        Q_UNUSED(surroundings)
    }
    /// Chooses the next hop after one that has ended with @p code. False if there is none.
    virtual bool takeNextHop(CURLcode code)
    {
        Q_UNUSED(code)
        return false;
    }
    /// Whether a socket to @p address may be opened.
    [[nodiscard]] virtual bool mayConnectTo(const sockaddr &address)
    {
        Q_UNUSED(address)
        return true;
    }
    virtual void report(CURLcode code, std::chrono::microseconds elapsed) = 0;

    void setNames(Names names) { m_names = std::move(names); }
    [[nodiscard]] CURL *handle() const { return m_handle.get(); }
    [[nodiscard]] std::chrono::milliseconds timeout() const { return m_timeout; }
    /// Makes the library wait this much longer than the time-out.
    void setExtraTime(std::chrono::milliseconds extra);
    /// What went wrong, in the library's words.
    [[nodiscard]] QString errorText(CURLcode code) const;
    void setErrorText(const QByteArray &text);

private:
    static curl_socket_t openSocket(void *self, curlsocktype purpose, curl_sockaddr *address);

    void setCommonOptions();
    void setTimeout(std::chrono::milliseconds timeout);
    void setAddresses(const LookUps &lookUps);
    void keepAddressesApart();
    void restoreScope(curl_sockaddr &address) const;
    void countWholeTime(Clock::time_point now);
    [[nodiscard]] std::chrono::milliseconds timeLeft() const;
    [[nodiscard]] std::chrono::microseconds elapsed(CURLcode code, Clock::time_point now) const;

    std::chrono::milliseconds m_timeout;
    Names m_names;
    Clock::duration m_spent{0};     ///< The clock's time when it last stopped.
    Clock::time_point m_clockStart; ///< When the clock would have started if it had never stopped.
    Clock::time_point m_lastAdmission;
    Clock::time_point m_lastBeginning;
    std::vector<sockaddr_storage> m_addresses; ///< The addresses found by the hop's look-ups.
    // These must outlive the handle, which uses them.
    std::array<char, CURL_ERROR_SIZE> m_errorBuffer{};
    CurlList m_resolved;
    CurlShare m_addressCache;
    CurlEasy m_handle;
};

} // namespace ostrel
