#include "NotificationManager.h"

namespace ostrel {

namespace {

/// A certificate with fewer days than this left is worth an interruption.
constexpr qint64 urgentCertificateDays = 4;

QString identifierFor(const QString &kind, const Monitor &monitor)
{
    return kind + monitor.id.toString(QUuid::WithoutBraces).toUpper();
}

} // namespace

NotificationManager::NotificationManager(NotificationCenter &center)
    : m_center(center)
{
}

void NotificationManager::notifyDown(const Monitor &monitor, const OptionalText &error)
{
    m_center.add({.identifier = identifierFor(QStringLiteral("down-"), monitor),
                  .title = monitor.displayName() + QStringLiteral(" is Down"),
                  .body = error.value_or(QStringLiteral("Not responding")),
                  .level = InterruptionLevel::timeSensitive});
}

void NotificationManager::notifyRecovery(const Monitor &monitor, Milliseconds responseTime)
{
    m_center.add({.identifier = identifierFor(QStringLiteral("up-"), monitor),
                  .title = monitor.displayName() + QStringLiteral(" is Back Up"),
                  .body = QString::asprintf("Responding in %.0fms", responseTime.count())});
}

void NotificationManager::notifySlow(const Monitor &monitor, Milliseconds responseTime,
                                     Milliseconds threshold)
{
    m_center.add({.identifier = identifierFor(QStringLiteral("slow-"), monitor),
                  .title = monitor.displayName() + QStringLiteral(" is Slow"),
                  .body = QString::asprintf("%.0fms (threshold: %.0fms)", responseTime.count(),
                                            threshold.count())});
}

void NotificationManager::notifyCertificateExpiring(const Monitor &monitor, qint64 days)
{
    const QString unit = days == 1 ? QStringLiteral("day") : QStringLiteral("days");
    m_center.add({.identifier = identifierFor(QStringLiteral("ssl-"), monitor),
                  .title = QStringLiteral("SSL Certificate Expiring"),
                  .body = monitor.displayName() + QStringLiteral(": ") + QString::number(days) +
                          u' ' + unit + QStringLiteral(" remaining"),
                  .level = days < urgentCertificateDays ? InterruptionLevel::timeSensitive
                                                        : InterruptionLevel::active});
}

} // namespace ostrel
