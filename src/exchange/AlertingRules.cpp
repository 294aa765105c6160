#include "AlertingRules.h"

#include "NotificationRules.h"
#include "NumberText.h"
#include "PrometheusText.h"

#include <QMap>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

using std::chrono::milliseconds;

const auto intervalLabel = u"ostrel_interval"_s;
const auto notifyLabel = u"ostrel_notify_down"_s;
const auto thresholdLabel = u"ostrel_threshold_ms"_s;
const auto daysLabel = u"ostrel_certificate_days"_s;

/// Monitors that share a rule: the same interval, and the same value of a label.
struct Group
{
    milliseconds interval{0};
    milliseconds longestProbe{0}; ///< The longest time that one of their probes may take.
    QByteArray value;             ///< The label's.
};

/// The groups of the monitors that have the label @p label, in a stable order.
QList<Group> groupsBy(const QString &label, const QList<ProbedMonitor> &monitors)
{
    QMap<std::pair<qint64, QByteArray>, Group> groups;
    for (const ProbedMonitor &probed : monitors) {
        const QByteArray value = ruleLabels(probed)[label].toString().toUtf8();
        if (value.isEmpty())
            continue;
        Group &group = groups[{probed.interval.count(), value}];
        group.interval = probed.interval;
        group.longestProbe = std::max(group.longestProbe, probed.scrapeTimeout);
        group.value = value;
    }
    return groups.values();
}

/// The samples of @p metric of @p group within the last @p range.
QByteArray samples(const QByteArray &metric, const QString &label, const Group &group,
                   milliseconds range)
{
    return metric + '{' + intervalLabel.toLatin1() + "=\"" + durationText(group.interval) + "\"," +
           label.toLatin1() + "=\"" + group.value + "\"}[" + durationText(range) + ']';
}

/// The last sample of @p metric. A sample may be an interval old and a probe late.
QByteArray last(const QByteArray &metric, const QString &label, const Group &group)
{
    return "last_over_time(" + samples(metric, label, group, 2 * group.interval) + ')';
}

/// Whether all of at least @p count samples within @p range are failures.
QByteArray allFailed(const Group &group, milliseconds range, qint64 count)
{
    const QByteArray success = samples("probe_success", notifyLabel, group, range);
    return "(sum_over_time(" + success + ") == 0 and count_over_time(" + success +
           ") >= " + QByteArray::number(count) + ')';
}

/// The shorter range holds exactly the last samples, but one less while a probe is under way; the
/// longer holds enough of them then.
QByteArray downExpression(const Group &group)
{
    const milliseconds range = failuresUntilDown * group.interval;
    return allFailed(group, range, failuresUntilDown) + " or " +
           allFailed(group, range + group.longestProbe, failuresUntilDown);
}

QByteArray slowExpression(const Group &group)
{
    const double seconds = Seconds(Milliseconds(group.value.toDouble())).count();
    return last("probe_duration_seconds", thresholdLabel, group) + " > " + numberText(seconds) +
           " and " + last("probe_success", thresholdLabel, group) + " == 1";
}

/// Less than a day more than the whole days that are worth a warning.
QByteArray certificateExpression(const Group &group)
{
    const double seconds = (group.value.toDouble() + 1) * 24 * 60 * 60;
    return last("probe_ssl_earliest_cert_expiry", daysLabel, group) + " - time() < " +
           numberText(seconds) + " and " + last("probe_http_status_code", daysLabel, group) +
           " > 0";
}

/// How an alert is written.
struct Alert
{
    const char *name;
    const QString &label; ///< Of the monitors that it concerns.
    const char *severity;
    const char *summary;
    QByteArray (*expression)(const Group &);
};

/// Labels that the series have anyway, because two rules of one name need different ones.
QByteArray groupLabels(const QString &label, const Group &group)
{
    const QByteArray indent(10, ' ');
    return indent + intervalLabel.toLatin1() + ": " + durationText(group.interval) + '\n' + indent +
           label.toLatin1() + ": " + yamlText(QString::fromLatin1(group.value)) + '\n';
}

QByteArray ruleOf(const Alert &alert, const Group &group)
{
    return QByteArray("      - alert: ") + alert.name +
           "\n        expr: " + yamlText(QString::fromUtf8(alert.expression(group))) +
           "\n        labels:\n" + groupLabels(alert.label, group) +
           "          severity: " + alert.severity + "\n        annotations:\n          summary: " +
           yamlText(QString::fromUtf8(alert.summary)) + '\n';
}

QByteArray rulesOf(const Alert &alert, const QList<ProbedMonitor> &monitors)
{
    QByteArray rules;
    for (const Group &group : groupsBy(alert.label, monitors))
        rules += ruleOf(alert, group);
    return rules;
}

QByteArray allRules(const QList<ProbedMonitor> &monitors)
{
    return rulesOf({"MonitorDown", notifyLabel, "critical",
                    "{{ $labels.name }} is down: {{ $labels.instance }}", &downExpression},
                   monitors) +
           rulesOf({"MonitorSlow", thresholdLabel, "warning",
                    "{{ $labels.name }} took {{ $value | humanizeDuration }}", &slowExpression},
                   monitors) +
           rulesOf({"CertificateExpires", daysLabel, "warning",
                    "The certificate of {{ $labels.name }} expires in "
                    "{{ $value | humanizeDuration }}",
                    &certificateExpression},
                   monitors);
}

/// Often enough that every result is seen soon.
milliseconds evaluationInterval(const QList<ProbedMonitor> &monitors)
{
    milliseconds interval = std::chrono::seconds(15);
    for (const ProbedMonitor &probed : monitors)
        interval = std::min(interval, probed.interval / 2);
    return interval;
}

} // namespace

QJsonObject ruleLabels(const ProbedMonitor &probed)
{
    const Monitor &monitor = probed.monitor;
    QJsonObject labels{{intervalLabel, QString::fromLatin1(durationText(probed.interval))}};
    if (monitor.notifyOnDown)
        labels.insert(notifyLabel, u"true"_s);
    if (monitor.type != MonitorType::http)
        return labels;
    if (monitor.responseTimeThreshold)
        labels.insert(thresholdLabel,
                      QString::fromLatin1(numberText(monitor.responseTimeThreshold->count())));
    // No response comes under a certificate that expired before.
    if (monitor.sslExpiryWarningDays >= 0)
        labels.insert(daysLabel, QString::number(monitor.sslExpiryWarningDays));
    return labels;
}

QByteArray alertingRules(const QList<ProbedMonitor> &monitors)
{
    const QByteArray rules = allRules(monitors);
    return "# Alerts for what Ostrel notifies of, written by ostrel export.\n"
           "groups:\n"
           "  - name: ostrel\n"
           "    interval: " +
           durationText(evaluationInterval(monitors)) +
           "\n    rules:" + (rules.isEmpty() ? QByteArray(" []\n") : '\n' + rules);
}

} // namespace ostrel
