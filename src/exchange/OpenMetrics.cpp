#include "OpenMetrics.h"

#include "CheckedAddress.h"
#include "MonitorStore.h"
#include "NumberText.h"
#include "RecordObjects.h"
#include "UptimeWindow.h"

#include <QSet>

#include <array>
#include <optional>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

QByteArray labelValue(const QString &text)
{
    QByteArray value = text.toUtf8();
    value.replace('\\', "\\\\").replace('"', "\\\"").replace('\n', "\\n");
    return '"' + value + '"';
}

QByteArray labelsOf(const Monitor &monitor)
{
    return "id=" + labelValue(idText(monitor.id)) + ",name=" + labelValue(monitor.displayName()) +
           ",address=" + labelValue(checkedAddress(monitor)) +
           ",type=" + labelValue(rawValue(monitor.type));
}

double secondsSince1970(Timestamp time)
{
    return Seconds(time.time_since_epoch()).count();
}

/// A monitor with what is known about it.
struct Subject
{
    const MonitorStore &store;
    const Monitor &monitor;
    std::optional<Check> latest;
    QByteArray labels;
};

/// The monitors of @p store, each id once: two samples must not have the same labels.
std::vector<Subject> subjectsOf(const MonitorStore &store)
{
    std::vector<Subject> subjects;
    QSet<QUuid> seen;
    for (const Monitor &monitor : store.monitors()) {
        if (seen.contains(monitor.id))
            continue;
        seen.insert(monitor.id);
        subjects.push_back({store, monitor, store.latestCheck(monitor), labelsOf(monitor)});
    }
    return subjects;
}

/// The value of a metric; nullopt if it isn't known.
using Reading = std::optional<double> (*)(const Subject &subject);

struct Metric
{
    const char *name;
    const char *help;
    Reading read;
};

constexpr std::array metrics = {
    Metric{"ostrel_monitor_enabled", "Whether the monitor is checked (1) or paused (0).",
           [](const Subject &subject) -> std::optional<double> {
               return subject.monitor.isEnabled ? 1 : 0;
           }},
    Metric{"ostrel_monitor_up", "Whether the last check succeeded.",
           [](const Subject &subject) -> std::optional<double> {
               return subject.latest ? std::optional(subject.latest->isUp ? 1.0 : 0.0)
                                     : std::nullopt;
           }},
    Metric{"ostrel_monitor_response_time_seconds", "The response time of the last check.",
           [](const Subject &subject) -> std::optional<double> {
               return subject.latest
                          ? std::optional(
                                Seconds(Milliseconds(subject.latest->responseTime)).count())
                          : std::nullopt;
           }},
    Metric{"ostrel_monitor_last_check_timestamp_seconds", "When the last check was made.",
           [](const Subject &subject) -> std::optional<double> {
               return subject.latest ? std::optional(secondsSince1970(subject.latest->timestamp))
                                     : std::nullopt;
           }},
    Metric{"ostrel_monitor_certificate_expiry_timestamp_seconds",
           "When the certificate that the last check saw expires.",
           [](const Subject &subject) -> std::optional<double> {
               return subject.latest && subject.latest->sslExpiresAt
                          ? std::optional(secondsSince1970(*subject.latest->sslExpiresAt))
                          : std::nullopt;
           }},
    Metric{"ostrel_monitor_history_checks", "How many checks the history holds.",
           [](const Subject &subject) -> std::optional<double> {
               return double(subject.store.checks(subject.monitor.id).size());
           }},
};

QByteArray heading(const QByteArray &name, const QByteArray &help)
{
    return "# HELP " + name + ' ' + help + "\n# TYPE " + name + " gauge\n";
}

QByteArray sample(const QByteArray &name, const QByteArray &labels, double value)
{
    return name + '{' + labels + "} " + numberText(value) + '\n';
}

QByteArray samplesOf(const Metric &metric, const std::vector<Subject> &subjects)
{
    QByteArray text = heading(metric.name, metric.help);
    for (const Subject &subject : subjects) {
        if (const auto value = metric.read(subject))
            text += sample(metric.name, subject.labels, *value);
    }
    return text;
}

QByteArray uptimesOf(const std::vector<Subject> &subjects)
{
    const QByteArray name = "ostrel_monitor_uptime_ratio";
    QByteArray text =
        heading(name, "The share of the window's checks that succeeded; 1 if there are none.");
    for (const Subject &subject : subjects) {
        for (const auto &window : uptimeWindows)
            text += sample(name, subject.labels + ",window=\"" + window.name + '"',
                           subject.store.uptime(subject.monitor.id, window.length));
    }
    return text;
}

} // namespace

QByteArray openMetrics(const MonitorStore &store)
{
    const std::vector<Subject> subjects = subjectsOf(store);
    QByteArray text;
    for (const Metric &metric : metrics)
        text += samplesOf(metric, subjects);
    return text + uptimesOf(subjects) + "# EOF\n";
}

} // namespace ostrel
