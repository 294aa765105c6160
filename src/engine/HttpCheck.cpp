#include "HttpCheck.h"

#include "Address.h"
#include "CertificateDays.h"
#include "ContinueOn.h"
#include "KeywordSearch.h"
#include "NotificationManager.h"
#include "SSLCaptureDelegate.h"
#include "TransferTimeout.h"

#include <QPromise>
#include <QThreadPool>
#include <QTimer>

#include <utility>

namespace ostrel {

namespace {

using namespace std::chrono_literals;

/// How long after the time-out the keyword may still be looked for, in a body that came just
/// before.
constexpr auto searchGrace = 250ms;

bool wantsKeyword(const Monitor &monitor)
{
    return monitor.keyword && !monitor.keyword->isEmpty();
}

HttpRequest makeRequest(const Monitor &monitor, const QUrl &url,
                        const std::shared_ptr<TlsDelegate> &delegate)
{
    return {
        .url = url.toEncoded(),
        .method = rawValue(monitor.method).toLatin1(),
        .userAgent = HttpCheck::userAgent,
        .timeout = transferTimeout(monitor.timeout),
        .bodyLimit = wantsKeyword(monitor) ? HttpCheck::searchedBodyLimit : 0,
        .tlsDelegate = delegate,
    };
}

/// Whether the body holds the monitor's keyword; nothing where there is no text to look in.
std::optional<bool> findKeyword(const Monitor &monitor, const HttpResult &result)
{
    const auto extent = result.isBodyTruncated ? BodyExtent::truncated : BodyExtent::complete;
    const auto text = decodeBody(result.body, extent);
    if (!text)
        return std::nullopt;
    return containsKeyword(*text, *monitor.keyword);
}

/// A site that asks for credentials, or forbids the anonymous client, is alive.
bool isUpStatus(int statusCode)
{
    return (statusCode >= 200 && statusCode <= 399) || statusCode == 401 || statusCode == 403;
}

void applyStatusRule(Check &check)
{
    check.isUp = isUpStatus(*check.statusCode);
    if (!check.isUp)
        check.error = QStringLiteral("HTTP %1").arg(*check.statusCode);
}

/// A keyword that is missing, or there against the user's wish, turns the check down and takes the
/// place of a status error; one that is as wished changes nothing.
void applyKeywordRule(Check &check, const Monitor &monitor)
{
    if (!check.keywordFound || *check.keywordFound == monitor.keywordShouldExist)
        return;
    check.isUp = false;
    const QString complaint = monitor.keywordShouldExist
                                  ? QStringLiteral("Keyword '%1' not found")
                                  : QStringLiteral("Keyword '%1' found (unexpected)");
    check.error = complaint.arg(*monitor.keyword);
}

Check invalidAddressCheck(const Monitor &monitor, Timestamp timestamp)
{
    Check check = newCheck(monitor, timestamp);
    check.error = QStringLiteral("Invalid URL");
    return check;
}

} // namespace

/// What one request has brought to light, and where its check goes.
struct HttpCheck::Exchange
{
    Monitor monitor;
    HttpResult result;
    std::optional<Timestamp> sslExpiresAt;
    std::shared_ptr<QPromise<Check>> promise;
};

HttpCheck::HttpCheck(Fetch fetch, NotificationManager &notifications, WallClock now,
                     QObject *parent)
    : QObject(parent)
    , m_fetch(std::move(fetch))
    , m_notifications(notifications)
    , m_now(std::move(now))
{
}

HttpCheck::HttpCheck(Network &network, NotificationManager &notifications)
    : HttpCheck([&network](const HttpRequest &request) { return network.fetch(request); },
                notifications)
{
}

QFuture<Check> HttpCheck::run(const Monitor &monitor)
{
    const auto url = parseAddress(monitor.url);
    if (!url)
        return QtFuture::makeReadyFuture(invalidAddressCheck(monitor, m_now()));

    const auto delegate = std::make_shared<SSLCaptureDelegate>();
    const auto promise = std::make_shared<QPromise<Check>>();
    promise->start();
    continueOn(m_fetch(makeRequest(monitor, *url, delegate)), this,
               [this, monitor, delegate, promise](const HttpResult &result) {
                   const Exchange exchange{monitor, result, delegate->expiryDate(), promise};
                   if (result.hasResponse && wantsKeyword(monitor))
                       search(exchange);
                   else
                       conclude(exchange, std::nullopt);
               });
    return promise->future();
}

void HttpCheck::search(const Exchange &exchange)
{
    // A large body takes a while to search; neither the I/O thread nor this one waits for it.
    const auto found = QtFuture::makeReadyFuture(exchange.result)
                           .then(QThreadPool::globalInstance(),
                                 [monitor = exchange.monitor](const HttpResult &result) {
                                     return findKeyword(monitor, result);
                                 });
    Exchange answered = exchange;
    answered.result.body.clear();
    // Goes with the search.
    const auto deadline = std::make_shared<QTimer>();
    continueOn(found, this, [this, answered, deadline](const std::optional<bool> &keywordFound) {
        conclude(answered, keywordFound);
    });
    const auto timeout = transferTimeout(exchange.monitor.timeout);
    if (timeout == 0ms)
        return;
    connect(deadline.get(), &QTimer::timeout, this, [this, answered] { giveUpSearch(answered); });
    deadline->setSingleShot(true);
    deadline->setTimerType(Qt::PreciseTimer);
    deadline->start(std::chrono::ceil<std::chrono::milliseconds>(timeout + searchGrace -
                                                                 exchange.result.elapsed));
}

void HttpCheck::giveUpSearch(Exchange exchange)
{
    exchange.result.hasResponse = false;
    exchange.result.error = QStringLiteral("Operation timed out after %1 milliseconds")
                                .arg(transferTimeout(exchange.monitor.timeout).count());
    conclude(exchange, std::nullopt);
}

void HttpCheck::conclude(const Exchange &exchange, std::optional<bool> keywordFound)
{
    if (exchange.promise->future().isFinished())
        return;
    exchange.promise->addResult(judge(exchange, keywordFound));
    exchange.promise->finish();
}

Check HttpCheck::judge(const Exchange &exchange, std::optional<bool> keywordFound)
{
    const Monitor &monitor = exchange.monitor;
    const HttpResult &result = exchange.result;
    Check check = newCheck(monitor, m_now());
    check.responseTime = Milliseconds(result.elapsed).count();
    check.sslExpiresAt = exchange.sslExpiresAt;
    if (!result.hasResponse) {
        check.error = result.error;
        return check;
    }

    check.statusCode = result.statusCode;
    check.keywordFound = keywordFound;
    applyStatusRule(check);
    applyKeywordRule(check, monitor);
    notifyIfSlow(monitor, check);
    notifyIfCertificateExpires(monitor, check);
    return check;
}

void HttpCheck::notifyIfSlow(const Monitor &monitor, const Check &check)
{
    const Milliseconds responseTime(check.responseTime);
    const auto &threshold = monitor.responseTimeThreshold;
    if (check.isUp && threshold && *threshold < responseTime)
        m_notifications.notifySlow(monitor, responseTime, *threshold);
}

void HttpCheck::notifyIfCertificateExpires(const Monitor &monitor, const Check &check)
{
    if (!check.sslExpiresAt)
        return;
    const qint64 days = wholeDaysBetween(m_now(), *check.sslExpiresAt);
    if (monitor.sslExpiryWarningDays >= days)
        m_notifications.notifyCertificateExpiring(monitor, days);
}

} // namespace ostrel
