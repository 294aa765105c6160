#include "OstrelProgram.h"

#include "DecodedChecks.h"
#include "FaviconService.h"
#include "IconFolder.h"
#include "MonitorJson.h"
#include "VirtualDisplay.h"
#include "WaitFor.h"

#include <QDir>
#include <QFile>
#include <QImage>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

class HistoryCollector : public CheckMapVisitor
{
public:
    void openHistory(const QUuid &monitorId) override
    {
        m_open = monitorId;
        histories[m_open].clear();
    }
    void takeCheck(Check &&check, std::optional<TextRange> /*compact*/) override
    {
        histories[m_open].push_back(std::move(check));
    }

    QHash<QUuid, std::vector<Check>> histories;

private:
    QUuid m_open;
};

} // namespace

OstrelProgram::OstrelProgram()
    : m_environment(QProcessEnvironment::systemEnvironment())
{
    for (const char *name :
         {"DISPLAY", "WAYLAND_DISPLAY", "DBUS_SESSION_BUS_ADDRESS", "DBUS_SYSTEM_BUS_ADDRESS",
          "http_proxy", "https_proxy", "all_proxy", "XDG_ACTIVATION_TOKEN"})
        m_environment.remove(QString::fromLatin1(name));
    setEnvironment(u"HOME"_s, m_home.path());
    setEnvironment(u"XDG_DATA_HOME"_s, homeFile(u"data"_s));
    setEnvironment(u"XDG_CONFIG_HOME"_s, homeFile(u"config"_s));
    setEnvironment(u"XDG_CACHE_HOME"_s, homeFile(u"cache"_s));
    setEnvironment(u"XDG_RUNTIME_DIR"_s, m_home.path());
    setEnvironment(u"DBUS_SYSTEM_BUS_ADDRESS"_s, u"unix:path="_s + homeFile(u"no-such-bus"_s));
    setEnvironment(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
    setEnvironment(u"LC_ALL"_s, u"C.UTF-8"_s);
    QDir().mkpath(dataDir());
}

QString OstrelProgram::builtProgram()
{
    return u"" OSTREL_PROGRAM ""_s;
}

void OstrelProgram::setEnvironment(const QString &name, const QString &value)
{
    m_environment.insert(name, value);
}

void OstrelProgram::showOn(const VirtualDisplay &display)
{
    setEnvironment(u"QT_QPA_PLATFORM"_s, u"xcb"_s);
    setEnvironment(u"DISPLAY"_s, display.name());
}

void OstrelProgram::writeMonitors(const QList<Monitor> &monitors) const
{
    // So that no icons are looked up for them.
    QImage icon(16, 16, QImage::Format_RGB32);
    icon.fill(Qt::blue);
    const IconFolder icons(dataDir() + u"/favicons"_s);
    for (const Monitor &monitor : monitors) {
        if (const auto domain = FaviconService::domain(monitor.url))
            icons.write(*domain, icon);
    }

    QFile file(dataDir() + u"/monitors.json"_s);
    if (file.open(QIODevice::WriteOnly))
        file.write(encodeMonitors(monitors));
}

QByteArray OstrelProgram::complaints() const
{
    QFile file(homeFile(u"errors"_s));
    QByteArray lines;
    if (!file.open(QIODevice::ReadOnly))
        return lines;
    for (QByteArray line = file.readLine(); !line.isEmpty(); line = file.readLine())
        lines += line.startsWith("ostrel: ") ? line : QByteArray();
    return lines;
}

bool OstrelProgram::launch()
{
    m_process.setProcessEnvironment(m_environment);
    m_process.start(m_program, m_arguments);
    return m_process.waitForStarted();
}

bool OstrelProgram::start()
{
    QFile::remove(loginItem());
    return launch() && waitFor([&] { return !isRunning() || QFile::exists(loginItem()); }) &&
           isRunning();
}

int OstrelProgram::stop()
{
    if (!m_process.stop() || m_process.exitStatus() != QProcess::NormalExit)
        return -1;
    return m_process.exitCode();
}

int OstrelProgram::waitForEnd()
{
    if (!waitFor([this] { return !isRunning(); }) || m_process.exitStatus() != QProcess::NormalExit)
        return -1;
    return m_process.exitCode();
}

void OstrelProgram::kill()
{
    m_process.kill();
    m_process.waitForFinished();
}

OstrelProgram::Outcome OstrelProgram::run(const QStringList &arguments) const
{
    return outcomeOf(*begin(arguments));
}

std::unique_ptr<BoundProcess> OstrelProgram::begin(const QStringList &arguments) const
{
    auto process = std::make_unique<BoundProcess>();
    process->setProcessChannelMode(QProcess::SeparateChannels);
    process->setProcessEnvironment(m_environment);
    process->start(m_program, arguments);
    return process;
}

OstrelProgram::Outcome OstrelProgram::outcomeOf(BoundProcess &process)
{
    const bool hasEnded = waitFor([&] { return process.state() == QProcess::NotRunning; });
    if (!hasEnded || process.error() == QProcess::FailedToStart ||
        process.exitStatus() != QProcess::NormalExit)
        return {};
    return {.exitCode = process.exitCode(),
            .output = process.readAllStandardOutput(),
            .errors = process.readAllStandardError()};
}

QByteArray OstrelProgram::file(const QString &name) const
{
    QFile file(dataDir() + QLatin1Char('/') + name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray OstrelProgram::preference(const QByteArray &key) const
{
    // Not through QSettings, which caches what it has read.
    QFile file(homeFile(u"config/Ostrel/Ostrel.conf"_s));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArrayList lines = file.readAll().split('\n');
    const auto line = std::ranges::find_if(
        lines, [&](const QByteArray &each) { return each.startsWith(key + '='); });
    return line == lines.cend() ? QByteArray() : line->mid(key.size() + 1);
}

std::optional<QList<Monitor>> OstrelProgram::readMonitors() const
{
    return decodeMonitors(file(u"monitors.json"_s));
}

std::optional<QHash<QUuid, std::vector<Check>>> OstrelProgram::readChecks() const
{
    HistoryCollector collector;
    if (!decodeCheckMap(file(u"checks.json"_s), collector))
        return std::nullopt;
    return collector.histories;
}

} // namespace ostrel::test
