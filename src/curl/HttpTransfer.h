#pragma once

#include "HttpClient.h"
#include "IncomingBody.h"
#include "Transfer.h"

#include <QPromise>

#include <optional>

namespace ostrel {

/// One request of HttpClient's.
class HttpTransfer final : public Transfer
{
public:
    /// The body is read by way of @p reading, if somebody wants it.
    HttpTransfer(HttpRequest request, std::shared_ptr<WorkQueue> reading,
                 std::shared_ptr<IoWaker> waker);

    [[nodiscard]] QFuture<HttpResult> future() const { return m_promise.future(); }

    void didBeginTurn() override;
    [[nodiscard]] Clock::time_point nextTurn() const override;
    [[nodiscard]] bool conclude(Clock::time_point now) override;

protected:
    void setUp(CURL *handle, const TrustStore &trustStore) override;
    void report(CURLcode code, std::chrono::microseconds elapsed) override;

private:
    static std::size_t didReceiveBody(char *bytes, std::size_t size, std::size_t count, void *self);
    static CURLcode didCreateTlsContext(CURL *handle, void *context, void *self);

    void setMethod(CURL *handle);
    void setTls(CURL *handle, const TrustStore &trustStore);
    [[nodiscard]] std::shared_ptr<IncomingBody> makeIncomingBody() const;
    /// False where the body's reader can't keep up.
    [[nodiscard]] bool handOver(QByteArrayView bytes);
    [[nodiscard]] QByteArray contentEncoding() const;
    void pause();
    void resume();
    [[nodiscard]] Clock::duration longestPause() const { return timeout() / 4; }
    [[nodiscard]] Clock::duration pausedTime(Clock::time_point now) const;
    [[nodiscard]] std::chrono::milliseconds extraTime() const;
    [[nodiscard]] bool isOverTime() const;
    [[nodiscard]] bool isTimeoutOurs(CURLcode code) const;
    void reportResponse();
    void finish();
    [[nodiscard]] QString timeoutText() const;

    HttpRequest m_request;
    QPromise<HttpResult> m_promise;
    CurlList m_headers;
    const std::shared_ptr<WorkQueue> m_reading;
    const std::shared_ptr<IoWaker> m_waker;
    std::shared_ptr<IncomingBody> m_body; ///< Null where nobody wants it.
    bool m_hasBody = false;               ///< Some of it has come.
    bool m_hasBrokenOff = false;          ///< We have, since the time is over.
    std::optional<Clock::time_point> m_pausedSince;
    Clock::duration m_pausedBefore{0};
    HttpResult m_result;
    bool m_isFinished = false;
};

} // namespace ostrel
