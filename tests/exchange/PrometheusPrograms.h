#pragma once

#include "BoundProcess.h"

#include <QByteArray>
#include <QJsonArray>
#include <QString>
#include <QStringList>

#include <optional>

namespace ostrel::test {

/// The programs of Debian's prometheus and prometheus-blackbox-exporter that aren't installed.
[[nodiscard]] QStringList missingPrometheusPrograms();

/// What promtool says about its @p arguments; nullopt if it approves. It reads @p input.
[[nodiscard]] std::optional<QString> complaintOfPromtool(const QStringList &arguments,
                                                         const QByteArray &input = {});

/// A real Prometheus and a real blackbox exporter with the configuration in a folder, on free ports
/// of 127.0.0.1, from construction to destruction.
class PrometheusPrograms
{
public:
    /// Changes the exporter's address in the configuration in @p folder, which ostrel export wrote.
    explicit PrometheusPrograms(const QString &folder);

    /// Waits until both answer; false if they don't.
    [[nodiscard]] bool areReady();
    /// The result of the instant query @p expression; empty if it fails.
    [[nodiscard]] QJsonArray query(const QString &expression);

private:
    void startExporter();
    void startPrometheus();

    QString m_folder;
    BoundProcess m_exporter;
    BoundProcess m_prometheus;
    quint16 m_exporterPort;
    quint16 m_prometheusPort;
};

} // namespace ostrel::test
