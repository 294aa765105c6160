#include "PrometheusPrograms.h"

#include "LoopbackListener.h"
#include "WaitFor.h"

#include <QFile>
#include <QJsonDocument>
#include <QStandardPaths>

#include <gtest/gtest.h>

#include <sys/socket.h>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

const QString local = u"127.0.0.1:"_s;

/// Two free ports that differ.
std::pair<quint16, quint16> freePorts()
{
    const LoopbackListener first;
    const LoopbackListener second;
    return {first.port(), second.port()};
}

void replaceIn(const QString &path, const QByteArray &before, const QByteArray &after)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    const QByteArray text = file.readAll().replace(before, after);
    file.resize(0);
    file.seek(0);
    file.write(text);
}

/// What promtool prints with @p arguments; nullopt if it fails.
std::optional<QByteArray> outputOfPromtool(const QStringList &arguments)
{
    BoundProcess promtool;
    promtool.setProcessChannelMode(QProcess::MergedChannels);
    promtool.start(u"promtool"_s, arguments);
    if (!promtool.waitForFinished(-1) || promtool.exitCode() != 0)
        return std::nullopt;
    return promtool.readAll();
}

} // namespace

QStringList missingPrometheusPrograms()
{
    QStringList missing;
    for (const QString &name :
         {u"prometheus"_s, u"promtool"_s, u"prometheus-blackbox-exporter"_s}) {
        if (QStandardPaths::findExecutable(name).isEmpty())
            missing += name;
    }
    return missing;
}

std::optional<QString> complaintOfPromtool(const QStringList &arguments, const QByteArray &input)
{
    BoundProcess promtool;
    promtool.setProcessChannelMode(QProcess::MergedChannels);
    promtool.start(u"promtool"_s, arguments);
    promtool.write(input);
    promtool.closeWriteChannel();
    const bool hasEnded = promtool.waitForFinished(-1);
    if (hasEnded && promtool.exitCode() == 0)
        return std::nullopt;
    return QString::fromUtf8(promtool.readAll());
}

PrometheusPrograms::PrometheusPrograms(const QString &folder)
    : m_folder(folder)
{
    std::tie(m_exporterPort, m_prometheusPort) = freePorts();
    replaceIn(m_folder + u"/prometheus.yml"_s, "127.0.0.1:9115",
              "127.0.0.1:" + QByteArray::number(m_exporterPort));
    startExporter();
    startPrometheus();
}

void PrometheusPrograms::startExporter()
{
    m_exporter.logTo(m_folder + u"/exporter.log"_s);
    m_exporter.start(u"prometheus-blackbox-exporter"_s,
                     {u"--config.file="_s + m_folder + u"/blackbox.yml"_s,
                      u"--web.listen-address="_s + local + QString::number(m_exporterPort)});
}

void PrometheusPrograms::startPrometheus()
{
    m_prometheus.logTo(m_folder + u"/prometheus.log"_s);
    m_prometheus.start(u"prometheus"_s,
                       {u"--config.file="_s + m_folder + u"/prometheus.yml"_s,
                        u"--storage.tsdb.path="_s + m_folder + u"/data"_s,
                        u"--web.listen-address="_s + local + QString::number(m_prometheusPort)});
}

bool PrometheusPrograms::areReady()
{
    return waitFor([&] { return !query(u"min(up) == 1"_s).isEmpty(); });
}

QJsonArray PrometheusPrograms::query(const QString &expression)
{
    const auto output =
        outputOfPromtool({u"query"_s, u"--format=json"_s, u"instant"_s,
                          u"http://"_s + local + QString::number(m_prometheusPort), expression});
    return output ? QJsonDocument::fromJson(*output).array() : QJsonArray();
}

} // namespace ostrel::test
