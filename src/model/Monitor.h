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
/// need not be one of these.
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

/// What a monitor is at the moment. Never stored: the store derives it from a monitor and its
/// latest check.
enum class MonitorStatus { up, down, paused, pending };

/// A span of time as files hold it: a number of seconds, with its fraction.
using Seconds = std::chrono::duration<double>;
/// A response time or threshold: a number of milliseconds, with its fraction.
using Milliseconds = std::chrono::duration<double, std::milli>;

[[nodiscard]] QString rawValue(MonitorType type);
[[nodiscard]] QString rawValue(HTTPMethod method);
[[nodiscard]] Seconds rawValue(CheckInterval interval);
[[nodiscard]] std::optional<MonitorType> monitorTypeFrom(QStringView rawValue);
[[nodiscard]] std::optional<HTTPMethod> httpMethodFrom(QStringView rawValue);
/// Only for exactly the six offered lengths.
[[nodiscard]] std::optional<CheckInterval> checkIntervalFrom(Seconds rawValue);

/// One watched endpoint: a plain value, copied freely, identified by `id` alone.
struct Monitor
{
    QUuid id;     ///< Never changes; keys the history.
    QString name; ///< The user's label; may be empty.
    QString url;  ///< The full address; for a port monitor, the host or an address that names it.
    HTTPMethod method = HTTPMethod::GET;
    Seconds interval{60};  ///< From the end of one check to the start of the next.
    Seconds timeout{30};   ///< Bounds a whole check.
    bool isEnabled = true; ///< False while paused.
    bool notifyOnDown = true;
    bool notifyOnRecovery = true;
    Timestamp createdAt;
    MonitorType type = MonitorType::http;
    std::optional<QString> keyword;
    bool keywordShouldExist = true; ///< False: the keyword's presence is the failure.
    std::optional<Milliseconds> responseTimeThreshold; ///< Slower than this is worth telling.
    std::optional<qint64> port;
    qint64 sslExpiryWarningDays = 14; ///< Whole days before expiry from which on to warn.

    bool operator==(const Monitor &) const = default;

    /// What lists, headings and notifications call it: the name, else the address's host, else
    /// the address.
    [[nodiscard]] QString displayName() const;
};

[[nodiscard]] size_t qHash(const Monitor &monitor, size_t seed = 0);

} // namespace ostrel
