#pragma once

#include "Timestamp.h"

#include <QString>
#include <QUuid>

#include <array>
#include <chrono>
#include <optional>

namespace ostrel {

enum class MonitorType {
    http, ///< Fetch the address over HTTP(S).
    port, ///< Open a TCP connection to the host and port.
};
inline constexpr std::array allMonitorTypes = {MonitorType::http, MonitorType::port};

enum class HTTPMethod { GET, HEAD, POST };
inline constexpr std::array allHTTPMethods = {HTTPMethod::GET, HTTPMethod::HEAD, HTTPMethod::POST};

/// The intervals that the form offers. A monitor stores its interval as a number of seconds, which
/// isn't necessarily one of these.
enum class CheckInterval {
    thirtySeconds,
    oneMinute,
    fiveMinutes,
    fifteenMinutes,
    thirtyMinutes,
    oneHour,
};
inline constexpr std::array allCheckIntervals = {
    CheckInterval::thirtySeconds,  CheckInterval::oneMinute,     CheckInterval::fiveMinutes,
    CheckInterval::fifteenMinutes, CheckInterval::thirtyMinutes, CheckInterval::oneHour,
};

/// A monitor's current state. Never stored: the store derives it from a monitor and its latest
/// check.
enum class MonitorStatus { up, down, paused, pending };

/// A duration as stored in files: seconds, with a fraction.
using Seconds = std::chrono::duration<double>;
/// A response time or threshold: milliseconds, with a fraction.
using Milliseconds = std::chrono::duration<double, std::milli>;

[[nodiscard]] QString rawValue(MonitorType type);
[[nodiscard]] QString rawValue(HTTPMethod method);
[[nodiscard]] Seconds rawValue(CheckInterval interval);
[[nodiscard]] std::optional<MonitorType> monitorTypeFrom(QStringView rawValue);
[[nodiscard]] std::optional<HTTPMethod> httpMethodFrom(QStringView rawValue);
/// Nullopt unless it is exactly one of the six offered intervals.
[[nodiscard]] std::optional<CheckInterval> checkIntervalFrom(Seconds rawValue);

/// One watched endpoint: a plain value, copied freely, identified by `id` alone.
struct Monitor
{
    QUuid id;          ///< Never changes; keys the history.
    QString name = {}; ///< The user's label; may be empty.
    QString url = {};  ///< The full address; for a port monitor, the host or an address with it.
    HTTPMethod method = HTTPMethod::GET;
    Seconds interval{60};  ///< From the end of one check to the start of the next.
    Seconds timeout{30};   ///< For a whole check.
    bool isEnabled = true; ///< False while paused.
    bool notifyOnDown = true;
    bool notifyOnRecovery = true;
    Timestamp createdAt = {};
    MonitorType type = MonitorType::http;
    std::optional<QString> keyword = {};
    bool keywordShouldExist = true; ///< False: the check fails if the keyword is present.
    std::optional<Milliseconds> responseTimeThreshold = {}; ///< Slower checks are worth notifying.
    std::optional<qint64> port = {};
    qint64 sslExpiryWarningDays = 14; ///< Warn from this many whole days before expiry.

    bool operator==(const Monitor &) const = default;

    /// The name in lists, headings and notifications: the monitor's name, or else the address's
    /// host, or else the address.
    [[nodiscard]] QString displayName() const;
};

[[nodiscard]] size_t qHash(const Monitor &monitor, size_t seed = 0);

} // namespace ostrel
