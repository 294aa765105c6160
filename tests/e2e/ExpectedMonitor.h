#pragma once

#include "Check.h"
#include "Monitor.h"

#include <QByteArray>
#include <QStringList>

#include <chrono>
#include <optional>

namespace ostrel::test {

/// A monitor, and the expected outcome of every check of it.
struct ExpectedMonitor
{
    Monitor monitor;
    bool isUp = true;
    std::optional<int> statusCode = {};
    const char *errorPattern = nullptr; ///< A regular expression for the whole text.
    std::optional<bool> keywordFound = {};
    std::optional<std::chrono::sys_seconds> sslExpiresAt = {};
    /// What a check takes, on a computer that is never late.
    std::chrono::milliseconds shortest{0};
    std::chrono::milliseconds longest{1500};
    /// The notifications shown for it in the end, each as "title|body|urgency": a regular
    /// expression.
    QStringList notifications = {};

    /// What is wrong with @p check, or nothing, on a computer that is late by @p lateness at worst.
    [[nodiscard]] QString complaintAbout(const Check &check,
                                         std::chrono::milliseconds lateness) const;
};

[[nodiscard]] Monitor webMonitor(const QString &name, const QByteArray &url);
[[nodiscard]] Monitor portMonitor(const QString &name, const QString &host,
                                  std::optional<qint64> port);

/// "NAME is Down", critical, with @p bodyPattern.
[[nodiscard]] QString downNotification(const QString &name, const QString &bodyPattern);

} // namespace ostrel::test
