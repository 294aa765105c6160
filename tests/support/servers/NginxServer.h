#pragma once

#include "TestCertificates.h"

#include <QByteArray>
#include <QList>
#include <QStringList>
#include <QTemporaryDir>

#include <optional>
#include <sys/types.h>

namespace ostrel::test {

/// One `server` block of nginx's configuration, on a port of its own.
struct NginxSite
{
    /// Plain http if there is none.
    std::optional<TestLeaf> leaf;
    /// The block's content besides `listen` and the certificate. PORT_0 stands for the first site's
    /// port, PORT_1 for the second's, and so on.
    QByteArray directives = "location / { return 200 \"OK\"; }";
};

/// A real nginx of Debian's nginx-light, in a fresh folder and on free ports of 127.0.0.1, from
/// construction to destruction. Works as root and as a normal user.
class NginxServer
{
public:
    /// Returns when every site accepts connections. Ends the program if nginx won't start.
    explicit NginxServer(const QList<NginxSite> &sites);
    ~NginxServer();
    NginxServer(const NginxServer &) = delete;
    NginxServer &operator=(const NginxServer &) = delete;

    /// Ends the server, and frees its ports, before this object ends.
    void stop();
    /// Starts it again on its former ports; false if one of them has been taken.
    [[nodiscard]] bool startAgain();

    [[nodiscard]] quint16 port(int site = 0) const { return m_ports.at(site); }
    /// "https://localhost:8443/path", or http for a site without a leaf.
    [[nodiscard]] QByteArray url(int site = 0, const QByteArray &path = "/",
                                 const QByteArray &host = "localhost") const;
    /// The folder that paths in directives are relative to; tests can put files there.
    [[nodiscard]] QString folder() const { return m_folder.path(); }
    /// One line per answered request: port, method, target, status, user agent.
    [[nodiscard]] QStringList accessLog() const;

private:
    [[nodiscard]] bool start();
    [[nodiscard]] bool writeConfiguration();
    void spawn();
    [[nodiscard]] QString outputPath() const;
    [[nodiscard]] bool waitUntilListening();
    [[nodiscard]] QByteArray configuration() const;
    [[nodiscard]] QByteArray block(int site) const;
    [[nodiscard]] QByteArray withPorts(QByteArray directives) const;

    QTemporaryDir m_folder;
    QList<NginxSite> m_sites;
    QList<quint16> m_ports;
    pid_t m_process = -1;
};

} // namespace ostrel::test
