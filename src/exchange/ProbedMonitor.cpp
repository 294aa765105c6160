#include "ProbedMonitor.h"

#include "Address.h"
#include "CheckedAddress.h"
#include "TransferTimeout.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

using std::chrono::milliseconds;

/// The exporter gives up half a second before Prometheus does; the other half is for the way.
constexpr milliseconds scrapeMargin = std::chrono::seconds(1);
constexpr milliseconds shortestInterval = std::chrono::seconds(1);
constexpr milliseconds longestInterval = std::chrono::hours(24 * 366);

QString secondsText(milliseconds time)
{
    return QString::number(Seconds(time).count()) + u" s"_s;
}

/// The address to fetch, in ASCII; empty if it isn't on the web.
QString webTarget(const QString &address)
{
    const auto url = parseAddress(address);
    const bool isWeb = url && !url->host().isEmpty() &&
                       (url->scheme() == u"http"_s || url->scheme() == u"https"_s);
    return isWeb ? QString::fromLatin1(url->toEncoded(QUrl::RemoveFragment)) : QString();
}

/// "host:port"; empty if there is no usable port or host.
QString portTarget(const Monitor &monitor)
{
    const bool hasPort = monitor.port && *monitor.port >= 1 && *monitor.port <= 65535;
    const bool hasHost = !hostOf(monitor.url).value_or(monitor.url).isEmpty();
    return hasPort && hasHost ? checkedAddress(monitor) : QString();
}

QString targetOf(const Monitor &monitor)
{
    return monitor.type == MonitorType::http ? webTarget(monitor.url) : portTarget(monitor);
}

/// Why @p monitor is left out; nullopt if it isn't.
std::optional<QString> obstacle(const Monitor &monitor)
{
    if (!monitor.isEnabled)
        return u"is paused, for which there is no counterpart; it is left out"_s;
    if (targetOf(monitor).isEmpty())
        return u"has no address that can be checked; it is left out"_s;
    if (transferTimeout(monitor.timeout) == milliseconds(0))
        return u"has a time-out of 0 s, after which nothing is up; it is left out"_s;
    return std::nullopt;
}

ProbeModule moduleOf(const Monitor &monitor)
{
    ProbeModule module{.type = monitor.type, .timeout = transferTimeout(monitor.timeout)};
    if (monitor.type == MonitorType::port)
        return module;
    module.method = monitor.method;
    module.keyword = monitor.keyword.value_or(QString());
    module.keywordShouldExist = module.keyword.isEmpty() || monitor.keywordShouldExist;
    return module;
}

milliseconds intervalOf(const Monitor &monitor)
{
    const Seconds bounded =
        std::clamp<Seconds>(monitor.interval, shortestInterval, longestInterval);
    return std::chrono::round<milliseconds>(bounded);
}

ProbedMonitor probedMonitor(const Monitor &monitor)
{
    const ProbeModule module = moduleOf(monitor);
    const milliseconds interval = intervalOf(monitor);
    return {.monitor = monitor,
            .target = targetOf(monitor),
            .module = module,
            .interval = interval,
            .scrapeTimeout = std::min(module.timeout + scrapeMargin, interval)};
}

bool isAscii(const QString &text)
{
    return std::ranges::all_of(text, [](QChar character) { return character < u'\x80'; });
}

QStringList differences(const ProbedMonitor &probed)
{
    const Monitor &monitor = probed.monitor;
    QStringList notes;
    if (Seconds(probed.interval) != monitor.interval)
        notes += u"is checked every "_s + secondsText(probed.interval) +
                 u": other intervals are a second at least, a year at most, in milliseconds"_s;
    const milliseconds longest = probed.scrapeTimeout - scrapeMargin / 2;
    if (probed.module.timeout > longest)
        notes += u"is given up after "_s + secondsText(longest) + u" instead of "_s +
                 secondsText(probed.module.timeout) +
                 u": a probe ends half a second before the next is due"_s;
    if (!isAscii(probed.module.keyword))
        notes += u"has a keyword beyond ASCII, which only matches if the page composes its "
                 "letters in the same way"_s;
    if (monitor.notifyOnDown && !monitor.notifyOnRecovery)
        notes += u"notifies of no recovery, which there only the Alertmanager can leave out "
                 "(send_resolved)"_s;
    return notes;
}

} // namespace

ProbeTranslation probeTranslation(const Monitor &monitor)
{
    if (const auto reason = obstacle(monitor))
        return {.probed = std::nullopt, .notes = {*reason}};
    const ProbedMonitor probed = probedMonitor(monitor);
    return {.probed = probed, .notes = differences(probed)};
}

} // namespace ostrel
