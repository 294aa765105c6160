#include "CheckCommand.h"

#include "CheckJson.h"
#include "FixedPoint.h"
#include "HttpCheck.h"
#include "MonitorNames.h"
#include "NotificationRules.h"
#include "OneLine.h"
#include "PortCheck.h"

#include <QEventLoop>
#include <QFutureWatcher>
#include <QStringList>

using namespace Qt::StringLiterals;

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
    return fixedPoint(value) + u" ms"_s;
}

QString headline(const Monitor &monitor, const Check &check)
{
    QStringList parts = {check.isUp ? u"UP  "_s : u"DOWN"_s, targetText(monitor)};
    if (check.statusCode)
        parts += u"HTTP %1"_s.arg(*check.statusCode);
    parts += milliseconds(check.responseTime);
    return parts.join(u"  "_s);
}

QStringList details(const Monitor &monitor, const Check &check)
{
    QStringList lines;
    if (check.error)
        lines += oneLine(*check.error);
    if (isSlow(monitor, check))
        lines += u"Slow: the threshold is %1"_s.arg(
            milliseconds(monitor.responseTimeThreshold->count()));
    if (check.keywordFound && !check.error)
        lines += *check.keywordFound ? u"Keyword found"_s : u"Keyword not found, as wished"_s;
    if (check.sslExpiresAt)
        lines += u"Certificate expires %1"_s.arg(
            QString::fromLatin1(formatTimestamp(*check.sslExpiresAt)));
    return lines;
}

} // namespace

Check runCheckOnce(const CheckInvocation &invocation, Network &network)
{
    return runChecks({invocation.monitor}, network).front();
}

std::vector<Check> runChecks(const QList<Monitor> &monitors, Network &network)
{
    HttpCheck httpCheck(network);
    PortCheck portCheck(network);
    std::vector<QFuture<Check>> runs;
    for (const Monitor &monitor : monitors) {
        const bool isWebsite = monitor.type == MonitorType::http;
        MonitorCheck &check = isWebsite ? static_cast<MonitorCheck &>(httpCheck) : portCheck;
        runs.push_back(beginCheck(check, monitor));
    }
    std::vector<Check> checks;
    for (const Monitor &monitor : monitors) {
        const auto &run = runs.at(checks.size());
        waitFor(run);
        checks.push_back(outcomeOf(run, monitor));
    }
    return checks;
}

QByteArray describeCheck(const Monitor &monitor, const Check &check, OutputFormat format)
{
    if (format == OutputFormat::json) {
        std::string json;
        appendCheck(json, check);
        return QByteArray::fromStdString(json) + '\n';
    }
    QStringList lines = {headline(monitor, check)};
    for (const QString &detail : details(monitor, check))
        lines += u"      "_s + detail;
    return lines.join(QLatin1Char('\n')).toUtf8() + '\n';
}

int exitCodeOf(const Check &check)
{
    return check.isUp ? exitDone : exitFailed;
}

} // namespace ostrel
