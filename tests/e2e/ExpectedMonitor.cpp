#include "ExpectedMonitor.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

// Short, so that a run of a few seconds sees several checks of each.
constexpr Seconds interval{0.4};
constexpr Seconds timeout{1.5};

bool matches(const char *pattern, const OptionalText &text)
{
    if (!pattern || !text)
        return !pattern && !text;
    const QRegularExpression whole(QRegularExpression::anchoredPattern(QString::fromUtf8(pattern)));
    return whole.match(*text).hasMatch();
}

Monitor newMonitor(const QString &name, const QString &url)
{
    return {.id = QUuid::createUuid(),
            .name = name,
            .url = url,
            .interval = interval,
            .timeout = timeout,
            .createdAt = *parseTimestamp("2026-01-01T00:00:00Z")};
}

} // namespace

QString ExpectedMonitor::complaintAbout(const Check &check,
                                        std::chrono::milliseconds lateness) const
{
    if (check.monitorId != monitor.id || check.id.isNull())
        return u"identity"_s;
    if (check.isUp != isUp)
        return u"isUp, with error '%1'"_s.arg(check.error.value_or({}));
    if (check.statusCode != CompactOptional<qint32>(statusCode))
        return u"status code %1"_s.arg(check.statusCode.value_or(-1));
    if (!matches(errorPattern, check.error))
        return u"error '%1'"_s.arg(check.error.value_or(u"(none)"_s));
    if (check.keywordFound != keywordFound)
        return u"keywordFound"_s;
    const std::optional<Timestamp> expiry = sslExpiresAt;
    if (check.sslExpiresAt != CompactOptional<Timestamp>(expiry))
        return u"sslExpiresAt"_s;
    const Milliseconds duration(check.responseTime);
    if (duration < shortest || duration > longest + lateness)
        return u"%1 ms, on a computer that is late by %2 ms"_s.arg(duration.count())
            .arg(lateness.count());
    return {};
}

Monitor webMonitor(const QString &name, const QByteArray &url)
{
    return newMonitor(name, QString::fromLatin1(url));
}

Monitor portMonitor(const QString &name, const QString &host, std::optional<qint64> port)
{
    Monitor monitor = newMonitor(name, host);
    monitor.type = MonitorType::port;
    monitor.port = port;
    return monitor;
}

QString downNotification(const QString &name, const QString &bodyPattern)
{
    return u"%1 is Down\\|%2\\|critical"_s.arg(name, bodyPattern);
}

} // namespace ostrel::test
