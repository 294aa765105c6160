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
using IsLeftBehind = bool (*)();

/// Ends the program where @p library has no function of that @p name.
template<typename Function>
Function resolve(QLibrary &library, const char *name)
{
    const auto function = reinterpret_cast<Function>(library.resolve(name));
    if (!function) {
        const QByteArray reason = library.errorString().toLocal8Bit();
        std::fprintf(stderr, "ostrel: the network can't be used: %s\n", reason.constData());
        std::_Exit(exitWithoutLibrary);
    }
    return function;
}

std::atomic<bool> isOneLeftBehind = false;

} // namespace

LazyNetwork::LazyNetwork(QString library)
    : m_library(std::move(library))
{
}

LazyNetwork::~LazyNetwork()
{
    m_network.reset();
    if (m_isLeftBehind != nullptr && m_isLeftBehind())
        isOneLeftBehind = true;
}

bool LazyNetwork::isAnyLeftBehind()
{
    return isOneLeftBehind;
}

QFuture<HttpResult> LazyNetwork::fetch(const HttpRequest &request)
{
    return network().fetch(request);
}

QFuture<TcpResult> LazyNetwork::connect(const QString &host, quint16 port,
                                        std::chrono::milliseconds timeout)
{
    return network().connect(host, port, timeout);
}

void LazyNetwork::dropConnections()
{
    if (Network *network = m_loaded)
        network->dropConnections();
}

Network &LazyNetwork::network()
{
    std::call_once(m_loading, [this] { load(); });
    return *m_network;
}

void LazyNetwork::load()
{
    // Stays loaded.
    QLibrary library(m_library.isEmpty() ? libraryBesideOrInstalled() : m_library);
    m_isLeftBehind = resolve<IsLeftBehind>(library, "isOstrelNetworkLeftBehind");
    m_network.reset(resolve<MakeNetwork>(library, "makeOstrelNetwork")());
    m_loaded = m_network.get();
}

} // namespace ostrel
