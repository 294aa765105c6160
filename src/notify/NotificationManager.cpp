#include "NotificationManager.h"

#include "FixedPoint.h"
#include "OneLine.h"

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

/// A certificate with fewer days than this left is worth an interruption.
constexpr qint64 urgentCertificateDays = 4;

QString identifierFor(const QString &kind, const Monitor &monitor)
{
    return kind + monitor.id.toString(QUuid::WithoutBraces).toUpper();
}

/// Cut on its own, so that the text about the monitor that follows is never cut off.
QString nameOf(const Monitor &monitor)
{
    return oneLine(monitor.displayName());
}

QString milliseconds(Milliseconds time)
{
    return fixedPoint(time.count()) + u"ms"_s;
}

} // namespace

NotificationManager::NotificationManager(NotificationCenter &center)
    : m_center(center)
{
}

void NotificationManager::notifyDown(const Monitor &monitor, const OptionalText &error)
{
    m_center.add({.identifier = identifierFor(u"down-"_s, monitor),
                  .title = nameOf(monitor) + u" is Down"_s,
                  .body = oneLine(error.value_or(u"Not responding"_s)),
                  .level = InterruptionLevel::timeSensitive,
                  .monitorId = monitor.id});
}

void NotificationManager::notifyRecovery(const Monitor &monitor, Milliseconds responseTime)
{
    m_center.add({.identifier = identifierFor(u"up-"_s, monitor),
                  .title = nameOf(monitor) + u" is Back Up"_s,
                  .body = u"Responding in "_s + milliseconds(responseTime),
                  .monitorId = monitor.id});
}

void NotificationManager::notifySlow(const Monitor &monitor, Milliseconds responseTime,
                                     Milliseconds threshold)
{
    m_center.add(
        {.identifier = identifierFor(u"slow-"_s, monitor),
         .title = nameOf(monitor) + u" is Slow"_s,
         .body = milliseconds(responseTime) + u" (threshold: "_s + milliseconds(threshold) + u')',
         .monitorId = monitor.id});
}

void NotificationManager::notifyCertificateExpiring(const Monitor &monitor, qint64 days)
{
    const QString unit = days == 1 ? u"day"_s : u"days"_s;
    m_center.add(
        {.identifier = identifierFor(u"ssl-"_s, monitor),
         .title = u"SSL Certificate Expiring"_s,
         .body = nameOf(monitor) + u": "_s + QString::number(days) + u' ' + unit + u" remaining"_s,
         .level = days < urgentCertificateDays ? InterruptionLevel::timeSensitive
                                               : InterruptionLevel::active,
         .monitorId = monitor.id});
}

} // namespace ostrel
