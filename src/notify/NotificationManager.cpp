#include "NotificationManager.h"

#include "FixedPoint.h"
#include "OneLine.h"

namespace ostrel {

namespace {

/// A certificate with fewer days than this left is worth an interruption.
constexpr qint64 urgentCertificateDays = 4;

QString identifierFor(const QString &kind, const Monitor &monitor)
{
    return kind + monitor.id.toString(QUuid::WithoutBraces).toUpper();
}

/// Cut by itself, so that what is said of the monitor is never cut off.
QString nameOf(const Monitor &monitor)
{
    return oneLine(monitor.displayName());
}

QString milliseconds(Milliseconds time)
{
    return fixedPoint(time.count()) + QStringLiteral("ms");
}

} // namespace

NotificationManager::NotificationManager(NotificationCenter &center)
    : m_center(center)
{
}

void NotificationManager::notifyDown(const Monitor &monitor, const OptionalText &error)
{
    m_center.add({.identifier = identifierFor(QStringLiteral("down-"), monitor),
                  .title = nameOf(monitor) + QStringLiteral(" is Down"),
                  .body = oneLine(error.value_or(QStringLiteral("Not responding"))),
                  .level = InterruptionLevel::timeSensitive});
}

void NotificationManager::notifyRecovery(const Monitor &monitor, Milliseconds responseTime)
{
    m_center.add({.identifier = identifierFor(QStringLiteral("up-"), monitor),
                  .title = nameOf(monitor) + QStringLiteral(" is Back Up"),
                  .body = QStringLiteral("Responding in ") + milliseconds(responseTime)});
}

void NotificationManager::notifySlow(const Monitor &monitor, Milliseconds responseTime,
                                     Milliseconds threshold)
{
    m_center.add({.identifier = identifierFor(QStringLiteral("slow-"), monitor),
                  .title = nameOf(monitor) + QStringLiteral(" is Slow"),
                  .body = milliseconds(responseTime) + QStringLiteral(" (threshold: ") +
                          milliseconds(threshold) + u')'});
}

void NotificationManager::notifyCertificateExpiring(const Monitor &monitor, qint64 days)
{
    const QString unit = days == 1 ? QStringLiteral("day") : QStringLiteral("days");
    m_center.add({.identifier = identifierFor(QStringLiteral("ssl-"), monitor),
                  .title = QStringLiteral("SSL Certificate Expiring"),
                  .body = nameOf(monitor) + QStringLiteral(": ") + QString::number(days) + u' ' +
                          unit + QStringLiteral(" remaining"),
                  .level = days < urgentCertificateDays ? InterruptionLevel::timeSensitive
                                                        : InterruptionLevel::active});
}

} // namespace ostrel
