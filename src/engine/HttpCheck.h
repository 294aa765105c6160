#pragma once

#include "MonitorCheck.h"
#include "Network.h"

#include <QObject>

#include <functional>
#include <optional>

namespace ostrel {

/// Fetches a monitor's address and judges the answer: the status code first, then the keyword.
class HttpCheck : public QObject, public MonitorCheck
{
    Q_OBJECT

public:
    /// A desktop browser's, so that sites which refuse unknown clients answer as they would to one.
    static constexpr char userAgent[] =
        "Mozilla/5.0 (Macintosh; Intel Mac OS X 14_0) AppleWebKit/605.1.15 (KHTML, like Gecko) "
        "Version/17.0 Safari/605.1.15";

    /// How a request is sent: Network::fetch.
    using Fetch = std::function<QFuture<HttpResult>(const HttpRequest &)>;

    explicit HttpCheck(Fetch fetch, WallClock now = systemNow, QObject *parent = nullptr);
    /// @p network outlives the check.
    explicit HttpCheck(Network &network);

    [[nodiscard]] QFuture<Check> run(const Monitor &monitor) override;

private:
    /// What a request has brought to light.
    struct Answer
    {
        const HttpResult &result;
        std::optional<Timestamp> sslExpiresAt;
        std::optional<bool> keywordFound;
    };

    [[nodiscard]] Check judge(const Monitor &monitor, const Answer &answer) const;

    Fetch m_fetch;
    WallClock m_now;
};

} // namespace ostrel
