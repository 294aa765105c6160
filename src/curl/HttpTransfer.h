#pragma once

#include "HttpClient.h"
#include "Transfer.h"

#include <QPromise>

namespace ostrel {

/// One request of HttpClient's.
class HttpTransfer final : public Transfer
{
public:
    explicit HttpTransfer(HttpRequest request);

    [[nodiscard]] QFuture<HttpResult> future() const { return m_promise.future(); }

    void didBeginTurn() override { m_bytesInTurn = 0; }

protected:
    void setUp(CURL *handle, const TrustStore &trustStore) override;
    void report(CURLcode code, std::chrono::microseconds elapsed) override;

private:
    static std::size_t didReceiveBody(char *bytes, std::size_t size, std::size_t count, void *self);
    static CURLcode didCreateTlsContext(CURL *handle, void *context, void *self);

    void setMethod(CURL *handle);
    void setTls(CURL *handle, const TrustStore &trustStore);
    void keep(const char *bytes, qsizetype count);
    [[nodiscard]] CURLcode refusal() const;
    [[nodiscard]] QString refusalText(std::chrono::microseconds elapsed) const;

    HttpRequest m_request;
    QPromise<HttpResult> m_promise;
    CurlList m_headers;
    QByteArray m_body;
    bool m_isBodyTruncated = false;
    CURLcode m_refusal = CURLE_OK; ///< Why we broke off.
    qsizetype m_bytesInTurn = 0;
};

} // namespace ostrel
