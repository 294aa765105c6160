#include "HttpCheck.h"

#include "Address.h"
#include "BodyReader.h"
#include "CaselessSearch.h"
#include "ContinueOn.h"
#include "HttpStatusRule.h"
#include "Network.h"
#include "SSLCaptureDelegate.h"
#include "TransferTimeout.h"

#include <memory>
#include <utility>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

bool wantsKeyword(const Monitor &monitor)
{
    return monitor.keyword && !monitor.keyword->isEmpty();
}

/// Searches the body for a monitor's keyword.
class KeywordReader final : public BodyReader
{
public:
    explicit KeywordReader(QString keyword)
        : m_keyword(std::move(keyword))
    {
    }

    // Prepared here, because preparing a long keyword takes a while, and may fail.
    void begin() override { m_search.emplace(m_keyword); }
    void read(QByteArrayView bytes) override { m_search->read(bytes); }

    /// Whether the keyword is in the body, once all of that is read; nullopt if the body isn't
    /// text.
    [[nodiscard]] std::optional<bool> finish() { return m_search->finish(); }

private:
    const QString m_keyword;
    std::optional<CaselessSearch> m_search;
};

/// Null if there is no keyword to search for.
std::shared_ptr<KeywordReader> makeReader(const Monitor &monitor)
{
    return wantsKeyword(monitor) ? std::make_shared<KeywordReader>(*monitor.keyword) : nullptr;
}

HttpRequest makeRequest(const Monitor &monitor, const QUrl &url,
                        const std::shared_ptr<TlsDelegate> &delegate)
{
    return {
        .url = url.toEncoded(),
        .method = rawValue(monitor.method).toLatin1(),
        .userAgent = HttpCheck::userAgent,
        .timeout = transferTimeout(monitor.timeout),
        .tlsDelegate = delegate,
    };
}

void applyStatusRule(Check &check)
{
    check.isUp = isUpStatus(*check.statusCode);
    if (!check.isUp)
        check.error = u"HTTP %1"_s.arg(*check.statusCode);
}

/// If the keyword is missing, or present against the user's wish, the check is down, and the
/// keyword error replaces a status error; otherwise the keyword changes nothing.
void applyKeywordRule(Check &check, const Monitor &monitor)
{
    if (!check.keywordFound || *check.keywordFound == monitor.keywordShouldExist)
        return;
    check.isUp = false;
    const QString complaint = monitor.keywordShouldExist ? u"Keyword '%1' not found"_s
                                                         : u"Keyword '%1' found (unexpected)"_s;
    check.error = complaint.arg(*monitor.keyword);
}

Check invalidAddressCheck(const Monitor &monitor, Timestamp timestamp)
{
    Check check = newCheck(monitor, timestamp);
    check.error = u"Invalid URL"_s;
    return check;
}

} // namespace

HttpCheck::HttpCheck(Network &network, WallClock now)
    : m_network(network)
    , m_now(std::move(now))
{
}

QFuture<Check> HttpCheck::run(const Monitor &monitor)
{
    const auto url = parseAddress(monitor.url);
    if (!url)
        return QtFuture::makeReadyFuture(invalidAddressCheck(monitor, m_now()));

    const auto delegate = std::make_shared<SSLCaptureDelegate>();
    const auto reader = makeReader(monitor);
    HttpRequest request = makeRequest(monitor, *url, delegate);
    request.bodyReader = reader;
    return continueOn(m_network.fetch(request), this,
                      [this, monitor, delegate, reader](const HttpResult &result) {
                          const bool isRead = reader && result.isBodyRead;
                          return judge(monitor, {result, delegate->expiryDate(),
                                                 isRead ? reader->finish() : std::nullopt});
                      });
}

Check HttpCheck::judge(const Monitor &monitor, const Answer &answer) const
{
    const HttpResult &result = answer.result;
    Check check = newCheck(monitor, m_now());
    check.responseTime = Milliseconds(result.elapsed).count();
    check.sslExpiresAt = answer.sslExpiresAt;
    if (!result.hasResponse) {
        check.error = result.error;
        return check;
    }

    check.statusCode = result.statusCode;
    check.keywordFound = answer.keywordFound;
    applyStatusRule(check);
    applyKeywordRule(check, monitor);
    return check;
}

} // namespace ostrel
