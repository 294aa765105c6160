#pragma once

#include "HttpClient.h"
#include "HttpHop.h"
#include "Proxies.h"
#include "Transfer.h"

#include <QPromise>

namespace ostrel {

/// One request of HttpClient's.
class HttpTransfer final : public Transfer
{
public:
    explicit HttpTransfer(HttpRequest request);

    [[nodiscard]] QFuture<HttpResult> future() const { return m_promise.future(); }

    [[nodiscard]] bool needsCertificates() const override;
    void didBeginTurn() override { m_bytesInTurn = 0; }

protected:
    void setUp(CURL *handle) override;
    void setUpHop(CURL *handle, const Surroundings &surroundings) override;
    bool takeNextHop(CURLcode code) override;
    void startOver() override;
    [[nodiscard]] bool mayConnectTo(const sockaddr &address) override;
    void report(CURLcode code, std::chrono::microseconds elapsed) override;

private:
    static std::size_t didReceiveBody(char *bytes, std::size_t size, std::size_t count, void *self);
    static std::size_t didReceiveHeader(char *bytes, std::size_t size, std::size_t count,
                                        void *self);
    static CURLcode didCreateTlsContext(CURL *handle, void *context, void *self);

    void setTls(CURL *handle);
    void setHop(HttpHop hop);
    /// Where the head that has arrived redirects to; empty if it doesn't.
    [[nodiscard]] QByteArray locationInHead() const;
    [[nodiscard]] bool isServerPublic() const;
    [[nodiscard]] bool isHeadTooLong(CURLcode code) const;
    void keep(const char *bytes, qsizetype count);
    [[nodiscard]] CURLcode refusal() const;
    [[nodiscard]] QString refusalText(std::chrono::microseconds elapsed) const;

    HttpRequest m_request;
    Proxies m_proxies = Proxies::fromEnvironment();
    HttpHop m_hop;
    bool m_hasHead = false; ///< Whether the hop's response has one that is complete.
    QByteArray m_location;  ///< Where the hop redirects to; empty if it doesn't.
    int m_redirects = 0;
    bool m_hasBeenPublic = false; ///< Whether a hop has answered from a public address.
    Surroundings m_surroundings;
    QPromise<HttpResult> m_promise;
    QByteArray m_body;
    bool m_isBodyTruncated = false;
    CURLcode m_refusal = CURLE_OK; ///< Why we broke off.
    qsizetype m_bytesInTurn = 0;
};

} // namespace ostrel
