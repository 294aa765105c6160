#include "LazyNetwork.h"

#include <QCoreApplication>
#include <QDir>
#include <QLibrary>
#include <QPromise>

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

LazyNetwork::~LazyNetwork()
{
    if (m_loader.joinable())
        m_loader.join();
}

template<typename Result>
QFuture<Result> LazyNetwork::whenLoaded(std::function<QFuture<Result>(Network &)> ask)
{
    if (Network *network = loaded())
        return ask(*network);
    const auto promise = std::make_shared<QPromise<QFuture<Result>>>();
    promise->start();
    QFuture<Result> result = promise->future().unwrap();
    whenLoaded([promise, ask = std::move(ask)](Network &network) {
        promise->addResult(ask(network));
        promise->finish();
    });
    return result;
}

QFuture<HttpResult> LazyNetwork::fetch(const HttpRequest &request)
{
    return whenLoaded<HttpResult>([request](Network &network) { return network.fetch(request); });
}

QFuture<TcpResult> LazyNetwork::connect(const QString &host, quint16 port,
                                        std::chrono::milliseconds timeout)
{
    return whenLoaded<TcpResult>(
        [host, port, timeout](Network &network) { return network.connect(host, port, timeout); });
}

void LazyNetwork::renewConnections()
{
    if (Network *network = loaded())
        network->renewConnections();
}

Network *LazyNetwork::loaded()
{
    const std::lock_guard lock(m_mutex);
    return m_network.get();
}

void LazyNetwork::whenLoaded(Ask ask)
{
    std::unique_lock lock(m_mutex);
    if (m_network) {
        lock.unlock();
        ask(*m_network);
        return;
    }
    m_waiting.push_back(std::move(ask));
    if (!m_loader.joinable())
        m_loader = std::thread(&LazyNetwork::load, this);
}

void LazyNetwork::load()
{
    auto network = networkOf(m_library.isEmpty() ? libraryBesideOrInstalled() : m_library);
    std::unique_lock lock(m_mutex);
    m_network = std::move(network);
    const std::vector<Ask> waiting = std::exchange(m_waiting, {});
    lock.unlock();
    for (const Ask &ask : waiting)
        ask(*m_network);
}

} // namespace ostrel
