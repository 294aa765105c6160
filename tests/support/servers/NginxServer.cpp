#include "NginxServer.h"

#include "LoopbackListener.h"

#include <QFile>

#include <csignal>
#include <sys/prctl.h>
#include <unistd.h>

namespace ostrel::test {

namespace {

// Somebody else may take a port between our finding it free and nginx's taking it.
constexpr int attempts = 5;

// Everything in the server's own folder, one process, and no worker that would have to change to a
// user who can't read the keys.
constexpr auto preamble = R"(
daemon off;
master_process off;
pid nginx.pid;
error_log error.log;
events { worker_connections 1024; }
http {
    log_format request '$server_port $request_method $request_uri $status $http_user_agent';
    access_log access.log request;
    client_body_temp_path temp;
    proxy_temp_path temp;
    fastcgi_temp_path temp;
    uwsgi_temp_path temp;
    scgi_temp_path temp;
    default_type text/plain;
)";

} // namespace

NginxServer::NginxServer(const QList<NginxSite> &sites)
    : m_sites(sites)
{
    m_process.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGTERM); });
    m_process.setProcessChannelMode(QProcess::MergedChannels);
    for (int i = 0; i < attempts; ++i) {
        if (start())
            return;
    }
    qFatal("nginx won't start: %s", m_process.readAll().constData());
}

NginxServer::~NginxServer()
{
    m_process.terminate();
    if (!m_process.waitForFinished(5000))
        m_process.kill();
    m_process.waitForFinished(5000);
}

QByteArray NginxServer::url(int site, const QByteArray &path, const QByteArray &host) const
{
    const QByteArray scheme = m_sites.at(site).leaf ? "https://" : "http://";
    return scheme + host + ':' + QByteArray::number(port(site)) + path;
}

QStringList NginxServer::accessLog() const
{
    QFile file(m_folder.filePath(QStringLiteral("access.log")));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
}

bool NginxServer::start()
{
    m_ports.clear();
    for (qsizetype i = 0; i < m_sites.size(); ++i)
        m_ports.append(closedPort());
    const QString path = m_folder.filePath(QStringLiteral("nginx.conf"));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(configuration()) < 0 || !file.flush())
        return false;
    m_process.start(QStringLiteral("/usr/sbin/nginx"),
                    {QStringLiteral("-p"), m_folder.path(), QStringLiteral("-c"), path,
                     QStringLiteral("-e"), QStringLiteral("error.log")});
    return m_process.waitForStarted() && waitUntilListening();
}

bool NginxServer::waitUntilListening()
{
    // The file is written once all ports are open.
    const QString pidFile = m_folder.filePath(QStringLiteral("nginx.pid"));
    while (!QFile::exists(pidFile)) {
        if (m_process.waitForFinished(1) || m_process.state() == QProcess::NotRunning)
            return false;
    }
    return true;
}

QByteArray NginxServer::configuration() const
{
    QByteArray text = preamble;
    for (int site = 0; site < m_sites.size(); ++site)
        text += block(site);
    return text + "}\n";
}

QByteArray NginxServer::block(int site) const
{
    const NginxSite &description = m_sites.at(site);
    const QByteArray address = "127.0.0.1:" + QByteArray::number(port(site));
    QByteArray text = "server {\nlisten " + address + (description.leaf ? " ssl;\n" : ";\n");
    if (const auto &leaf = description.leaf) {
        text += "ssl_certificate " + QFile::encodeName(leaf->chainFile) + ";\n";
        text += "ssl_certificate_key " + QFile::encodeName(leaf->keyFile) + ";\n";
    }
    return text + withPorts(description.directives) + "\n}\n";
}

QByteArray NginxServer::withPorts(QByteArray directives) const
{
    for (int site = 0; site < m_sites.size(); ++site)
        directives.replace("PORT_" + QByteArray::number(site), QByteArray::number(port(site)));
    return directives;
}

} // namespace ostrel::test
