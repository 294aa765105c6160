#include "PrometheusExport.h"

#include "AlertingRules.h"
#include "BlackboxModules.h"
#include "OneLine.h"
#include "ProbedMonitor.h"
#include "PrometheusReadme.h"
#include "PrometheusText.h"
#include "RecordObjects.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

/// Targets that are scraped alike.
struct Job
{
    std::chrono::milliseconds interval{0};
    std::chrono::milliseconds timeout{0};
    QJsonArray targets;
};

using Jobs = QMap<QString, Job>; ///< By their names.

QString jobName(const ProbedMonitor &probed)
{
    return QString::fromLatin1("ostrel-every-" + durationText(probed.interval) + "-within-" +
                               durationText(probed.scrapeTimeout));
}

QString targetsPath(const QString &job)
{
    return u"targets/"_s + job + u".json"_s;
}

QJsonObject targetGroup(const ProbedMonitor &probed, const QByteArray &module)
{
    QJsonObject labels = ruleLabels(probed);
    labels.insert(u"__param_module"_s, QString::fromLatin1(module));
    labels.insert(u"name"_s, oneLine(probed.monitor.displayName()));
    labels.insert(u"ostrel_id"_s, idText(probed.monitor.id));
    return {{u"targets"_s, QJsonArray{probed.target}}, {u"labels"_s, labels}};
}

Jobs jobsOf(const QList<ProbedMonitor> &monitors, BlackboxModules &modules)
{
    Jobs jobs;
    for (const ProbedMonitor &probed : monitors) {
        Job &job = jobs[jobName(probed)];
        job.interval = probed.interval;
        job.timeout = probed.scrapeTimeout;
        job.targets.append(targetGroup(probed, modules.nameOf(probed.module)));
    }
    return jobs;
}

QByteArray jobLines(const QString &name, const Job &job)
{
    return "  - job_name: " + name.toLatin1() +
           "\n    scrape_interval: " + durationText(job.interval) +
           "\n    scrape_timeout: " + durationText(job.timeout) +
           "\n    metrics_path: /probe\n"
           "    file_sd_configs:\n"
           "      - files: [" +
           targetsPath(name).toLatin1() +
           "]\n"
           "    relabel_configs:\n"
           "      - source_labels: [__address__]\n"
           "        target_label: __param_target\n"
           "      - source_labels: [__param_target]\n"
           "        target_label: instance\n"
           "      - target_label: __address__\n"
           "        replacement: 127.0.0.1:9115 # the blackbox exporter\n";
}

QByteArray scrapeConfiguration(const Jobs &jobs)
{
    QByteArray text = "# Prometheus' configuration, written by ostrel export.\n"
                      "rule_files: [ostrel.rules.yml]\n"
                      "scrape_configs:";
    text += jobs.isEmpty() ? " []\n" : "\n";
    for (auto job = jobs.begin(); job != jobs.end(); ++job)
        text += jobLines(job.key(), job.value());
    return text;
}

/// The monitors that can be probed; adds to @p notes what can't. Each id counts once, as in the
/// store.
QList<ProbedMonitor> probedMonitors(const QList<Monitor> &monitors, QStringList &notes)
{
    QList<ProbedMonitor> probed;
    QSet<QUuid> seen;
    for (const Monitor &monitor : monitors) {
        if (seen.contains(monitor.id))
            continue;
        seen.insert(monitor.id);
        const ProbeTranslation translation = probeTranslation(monitor);
        for (const QString &note : translation.notes)
            notes += oneLine(monitor.displayName()) + u": "_s + note;
        if (translation.probed)
            probed += *translation.probed;
    }
    return probed;
}

} // namespace

PrometheusConfiguration prometheusConfiguration(const QList<Monitor> &monitors)
{
    PrometheusConfiguration configuration;
    const QList<ProbedMonitor> probed = probedMonitors(monitors, configuration.notes);
    BlackboxModules modules;
    const Jobs jobs = jobsOf(probed, modules);
    for (auto job = jobs.begin(); job != jobs.end(); ++job)
        configuration.files[targetsPath(job.key())] = QJsonDocument(job.value().targets).toJson();
    configuration.files[u"blackbox.yml"_s] = modules.yaml();
    configuration.files[u"prometheus.yml"_s] = scrapeConfiguration(jobs);
    configuration.files[u"ostrel.rules.yml"_s] = alertingRules(probed);
    configuration.files[u"README.md"_s] = prometheusReadme();
    return configuration;
}

} // namespace ostrel
