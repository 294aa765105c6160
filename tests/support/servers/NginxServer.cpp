#include "NginxServer.h"

#include "LoopbackListener.h"

#include <QFile>

#include <algorithm>
#include <array>
#include <csignal>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

// Another program may take a port between our finding it free and nginx's taking it.
constexpr int attempts = 5;

// Everything is in the server's own folder, in one process, without a worker that would have to
// change to a user who can't read the keys.
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
    for (int i = 0; i < attempts; ++i) {
        if (start())
            return;
    }
    QFile output(outputPath());
    (void)output.open(QIODevice::ReadOnly);
    qFatal("nginx won't start: %s", output.readAll().constData());
}

NginxServer::~NginxServer()
{
    stop();
}

void NginxServer::stop()
{
    if (m_process < 0)
        return;
    kill(m_process, SIGTERM);
    waitpid(m_process, nullptr, 0);
    m_process = -1;
}

bool NginxServer::startAgain()
{
    spawn();
    return waitUntilListening();
}

QByteArray NginxServer::url(int site, const QByteArray &path, const QByteArray &host) const
{
    const QByteArray scheme = m_sites.at(site).leaf ? "https://" : "http://";
    return scheme + host + ':' + QByteArray::number(port(site)) + path;
}

QStringList NginxServer::accessLog() const
{
    QFile file(m_folder.filePath(u"access.log"_s));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
}

bool NginxServer::start()
{
    m_ports.clear();
    for (qsizetype i = 0; i < m_sites.size(); ++i)
        m_ports.append(closedPort());
    return writeConfiguration() && startAgain();
}

bool NginxServer::writeConfiguration()
{
    QFile file(m_folder.filePath(u"nginx.conf"_s));
    const QByteArray text = configuration();
    return file.open(QIODevice::WriteOnly) && file.write(text) == text.size();
}

void NginxServer::spawn()
{
    // Not by fork(): ThreadSanitizer loses track of a program with threads that forks. setpriv
    // makes nginx end with the test, however that ends.
    const QByteArray folder = QFile::encodeName(m_folder.path());
    std::array arguments{"setpriv", "--pdeathsig",      "TERM", "/usr/sbin/nginx",
                         "-p",      folder.constData(), "-c",   "nginx.conf",
                         "-e",      "error.log"};
    std::array<char *, arguments.size() + 1> argv{};
    std::transform(arguments.begin(), arguments.end(), argv.begin(),
                   [](const char *argument) { return const_cast<char *>(argument); });

    const QByteArray output = QFile::encodeName(outputPath());
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, output.constData(),
                                     O_WRONLY | O_CREAT | O_TRUNC, 0600);
    if (posix_spawnp(&m_process, argv.front(), &actions, nullptr, argv.data(), environ) != 0)
        qFatal("setpriv won't start");
    posix_spawn_file_actions_destroy(&actions);
}

QString NginxServer::outputPath() const
{
    return m_folder.filePath(u"output.log"_s);
}

bool NginxServer::waitUntilListening()
{
    // The file is written once all ports are open.
    const QString pidFile = m_folder.filePath(u"nginx.pid"_s);
    while (!QFile::exists(pidFile)) {
        if (waitpid(m_process, nullptr, WNOHANG) != 0)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
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
