#pragma once

#include "HttpHop.h"
#include "IncomingBody.h"
#include "Network.h"
#include "Proxies.h"
#include "Transfer.h"
#include "TransferPauses.h"

#include <QPromise>

namespace ostrel {

class Inbox;
class WorkQueue;

/// One request, as described at Network::fetch().
class HttpTransfer final : public Transfer
{
public:
    /// @p address is the request's. The body, if it is wanted, is read through @p reading.
    HttpTransfer(HttpRequest request, WebAddress address, std::shared_ptr<WorkQueue> reading,
                 std::shared_ptr<Inbox> inbox);
    ~HttpTransfer() override;

    [[nodiscard]] QFuture<HttpResult> future() const { return m_promise.future(); }

    [[nodiscard]] bool needsCertificates() const override;
    void didBeginTurn() override;
    [[nodiscard]] Clock::time_point nextTurn() const override;
    [[nodiscard]] bool conclude(Clock::time_point now) override;

protected:
    void setUp(CURL *handle) override;
    void setUpHop(CURL *handle, const Surroundings &surroundings) override;
    bool takeNextHop(CURLcode code) override;
    [[nodiscard]] bool mayConnectTo(const sockaddr &address) override;
    void report(CURLcode code, std::chrono::microseconds elapsed) override;

private:
    static std::size_t didReceiveBody(char *bytes, std::size_t size, std::size_t count, void *self);
    static std::size_t didReceiveHeader(char *bytes, std::size_t size, std::size_t count,
                                        void *self);
    static CURLcode didCreateTlsContext(CURL *handle, void *context, void *self);

    void setTls(CURL *handle);
    void setHop(HttpHop hop);
    /// The redirect target in the received head; empty if it doesn't redirect.
    [[nodiscard]] QByteArray locationInHead() const;
    [[nodiscard]] bool isServerPublic() const;
    [[nodiscard]] bool isHeadTooLong(CURLcode code) const;
    void reportResponse();
    void finish();
    [[nodiscard]] QString timeoutText() const;

    void renewBody();
    [[nodiscard]] std::shared_ptr<IncomingBody> makeIncomingBody() const;
    /// False if the body's reader can't keep up.
    [[nodiscard]] bool handOver(QByteArrayView bytes);
    [[nodiscard]] QByteArray contentEncoding() const;
    void pause();
    void resume();
    [[nodiscard]] Clock::time_point endOfPause() const;
    [[nodiscard]] bool isLengthKnown() const;
    [[nodiscard]] bool isOverTime() const;
    [[nodiscard]] bool isTimeoutOurs(CURLcode code) const;

    HttpRequest m_request;
    Proxies m_proxies = Proxies::fromEnvironment();
    HttpHop m_hop;
    bool m_hasHead = false; ///< Whether the head of the hop's response is complete.
    QByteArray m_location;  ///< The hop's redirect target; empty if it doesn't redirect.
    int m_redirects = 0;
    bool m_hasBeenPublic = false; ///< Whether a hop's response came from a public address.
    Surroundings m_surroundings;
    QPromise<HttpResult> m_promise;
    HttpResult m_result;
    bool m_isFinished = false;

    const std::shared_ptr<WorkQueue> m_reading;
    const std::shared_ptr<Inbox> m_inbox;
    std::shared_ptr<IncomingBody> m_body; ///< The hop's; null if it isn't wanted.
    bool m_hasBody = false;               ///< Some of it has arrived.
    bool m_hasBrokenOff = false;          ///< We aborted, because the time was over.
    TransferPauses m_pauses;
};

} // namespace ostrel
