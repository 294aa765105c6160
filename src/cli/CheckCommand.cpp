#include "CheckCommand.h"

#include "CheckJson.h"
#include "FixedPoint.h"
#include "HttpCheck.h"
#include "NotificationRules.h"
#include "OneLine.h"
#include "PortCheck.h"

#include <QEventLoop>
#include <QFutureWatcher>
#include <QStringList>

namespace ostrel {

namespace {

void waitFor(const QFuture<Check> &future)
{
    QEventLoop loop;
    QFutureWatcher<Check> watcher;
    QObject::connect(&watcher, &QFutureWatcherBase::finished, &loop, &QEventLoop::quit);
    watcher.setFuture(future);
    if (!future.isFinished())
        loop.exec();
}

QString milliseconds(double value)
{
    return fixedPoint(value) + QStringLiteral(" ms");
}

QString target(const Monitor &monitor)
{
    const QString address = oneLine(monitor.url);
    return monitor.port ? address + QStringLiteral(", port ") + QString::number(*monitor.port)
                        : address;
}

QString headline(const Monitor &monitor, const Check &check)
{
    QStringList parts = {check.isUp ? QStringLiteral("UP  ") : QStringLiteral("DOWN"),
                         target(monitor)};
    if (check.statusCode)
        parts += QStringLiteral("HTTP %1").arg(*check.statusCode);
    parts += milliseconds(check.responseTime);
    return parts.join(QStringLiteral("  "));
}

QStringList details(const Monitor &monitor, const Check &check)
{
    QStringList lines;
    if (check.error)
        lines += oneLine(*check.error);
    if (isSlow(monitor, check))
        lines += QStringLiteral("Slow: the threshold is %1")
                     .arg(milliseconds(monitor.responseTimeThreshold->count()));
    if (check.keywordFound && !check.error)
        lines += *check.keywordFound ? QStringLiteral("Keyword found")
                                     : QStringLiteral("Keyword not found, as wished");
    if (check.sslExpiresAt)
        lines += QStringLiteral("Certificate expires %1")
                     .arg(QString::fromLatin1(formatTimestamp(*check.sslExpiresAt)));
    return lines;
}

} // namespace

Check runCheckOnce(const CheckInvocation &invocation, Network &network)
{
    HttpCheck httpCheck(network);
    PortCheck portCheck(network);
    MonitorCheck &check = invocation.monitor.type == MonitorType::http
                              ? static_cast<MonitorCheck &>(httpCheck)
                              : portCheck;
    const auto run = beginCheck(check, invocation.monitor);
    waitFor(run);
    return outcomeOf(run, invocation.monitor);
}

QByteArray describeCheck(const CheckInvocation &invocation, const Check &check)
{
    if (invocation.format == OutputFormat::json) {
        std::string json;
        appendCheck(json, check);
        return QByteArray::fromStdString(json) + '\n';
    }
    QStringList lines = {headline(invocation.monitor, check)};
    for (const QString &detail : details(invocation.monitor, check))
        lines += QStringLiteral("      ") + detail;
    return lines.join(QLatin1Char('\n')).toUtf8() + '\n';
}

int exitCodeOf(const Check &check)
{
    return check.isUp ? exitUp : exitDown;
}

} // namespace ostrel
