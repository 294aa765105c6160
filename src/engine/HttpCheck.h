#pragma once

#include "HttpClient.h"
#include "MonitorCheck.h"

#include <QObject>

namespace ostrel {

class NotificationManager;
class SSLCaptureDelegate;

/// Fetches a monitor's address and judges the answer: the status code first, then the keyword.
/// Sends the notifications that depend on the one response alone, "slow" and "certificate
/// expiring", on every check to which they apply; the monitor's switches don't gate them.
class HttpCheck : public QObject, public MonitorCheck
{
    Q_OBJECT

public:
    /// A desktop browser's, so that sites which refuse unknown clients answer as they would to one.
    static constexpr char userAgent[] =
        "Mozilla/5.0 (Macintosh; Intel Mac OS X 14_0) AppleWebKit/605.1.15 (KHTML, like Gecko) "
        "Version/17.0 Safari/605.1.15";
    /// How much of a decoded body is searched for the keyword, in bytes: 64 MiB.
    static constexpr qsizetype searchedBodyLimit = 64 * 1024 * 1024;

    /// @p client and @p notifications outlive the check.
    HttpCheck(HttpClient &client, NotificationManager &notifications, WallClock now = systemNow,
              QObject *parent = nullptr);

    [[nodiscard]] QFuture<Check> run(const Monitor &monitor) override;

private:
    struct Outcome;

    [[nodiscard]] Check conclude(const Monitor &monitor, const Outcome &outcome);
    void notifyIfSlow(const Monitor &monitor, const Check &check);
    void notifyIfCertificateExpires(const Monitor &monitor, const Check &check);

    HttpClient &m_client;
    NotificationManager &m_notifications;
    WallClock m_now;
};

} // namespace ostrel
