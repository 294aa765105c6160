#pragma once

#include "MonitorCheck.h"

#include <QObject>

#include <optional>

namespace ostrel {

class Network;
struct HttpResult;

/// Fetches a monitor's address and judges the response: the status code first, then the keyword.
class HttpCheck : public QObject, public MonitorCheck
{
    Q_OBJECT

public:
    /// A desktop browser's, so that sites that reject unknown clients respond as they would to a
    /// browser.
    static constexpr char userAgent[] =
        "Mozilla/5.0 (Macintosh; Intel Mac OS X 14_0) AppleWebKit/605.1.15 (KHTML, like Gecko) "
        "Version/17.0 Safari/605.1.15";

    /// @p network must outlive the check.
    explicit HttpCheck(Network &network, WallClock now = systemNow);

    [[nodiscard]] QFuture<Check> run(const Monitor &monitor) override;

private:
    /// The findings of a request.
    struct Answer
    {
        const HttpResult &result;
        std::optional<Timestamp> sslExpiresAt;
        std::optional<bool> keywordFound;
    };

    [[nodiscard]] Check judge(const Monitor &monitor, const Answer &answer) const;

    Network &m_network;
    WallClock m_now;
};

} // namespace ostrel
