#include "LazyNetwork.h"

#include <QCoreApplication>
#include <QDir>
#include <QLibrary>

#include <cstdio>
#include <cstdlib>
#include <utility>

namespace ostrel {

namespace {

/// Of the dynamic linker's.
constexpr int exitWithoutLibrary = 127;

QString libraryBesideOrInstalled()
{
    const QDir folder(QCoreApplication::applicationDirPath());
    const QString name = QStringLiteral(OSTREL_NETWORK_LIBRARY);
    return folder.exists(name) ? folder.filePath(name)
                               : folder.filePath(QStringLiteral(OSTREL_LIBRARY_DIR "/") + name);
}

/// What the library can be asked for.
using MakeNetwork = Network *(*)();

std::unique_ptr<Network> networkOf(const QString &file)
{
    QLibrary library(file); // Stays loaded.
    const auto make = reinterpret_cast<MakeNetwork>(library.resolve("makeOstrelNetwork"));
    if (!make) {
        const QByteArray reason = library.errorString().toLocal8Bit();
        std::fprintf(stderr, "ostrel: the network can't be used: %s\n", reason.constData());
        std::_Exit(exitWithoutLibrary);
    }
    return std::unique_ptr<Network>(make());
}

} // namespace

LazyNetwork::LazyNetwork(QString library)
    : m_library(std::move(library))
{
}

LazyNetwork::~LazyNetwork() = default;

QFuture<HttpResult> LazyNetwork::fetch(const HttpRequest &request)
{
    return network().fetch(request);
}

QFuture<TcpResult> LazyNetwork::connect(const QString &host, quint16 port,
                                        std::chrono::milliseconds timeout)
{
    return network().connect(host, port, timeout);
}

void LazyNetwork::renewConnections()
{
    if (Network *network = m_loaded)
        network->renewConnections();
}

Network &LazyNetwork::network()
{
    std::call_once(m_loading, [this] {
        m_network = networkOf(m_library.isEmpty() ? libraryBesideOrInstalled() : m_library);
        m_loaded = m_network.get();
    });
    return *m_network;
}

} // namespace ostrel
