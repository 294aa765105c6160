#pragma once

#include "Network.h"

#include <atomic>
#include <memory>
#include <mutex>

namespace ostrel {

/// A network whose library is loaded when something is first asked of it. Loading the dozens of
/// libraries that come with it takes some milliseconds, and the first frame needs none of them.
///
/// Where the library can't be loaded the program says so and ends with the status 127, as it does
/// without any other of its libraries.
class LazyNetwork : public Network
{
public:
    /// @p library is the file to load; by default that beside the program, else the installed one.
    explicit LazyNetwork(QString library = QString());
    /// Ends what is under way. Doesn't wait for bodies that are being read.
    ~LazyNetwork() override;

    /// Whether such a body was still being read when some network was destroyed. The program then
    /// has to end without the destructors of static objects.
    [[nodiscard]] static bool isAnyLeftBehind();

    [[nodiscard]] QFuture<HttpResult> fetch(const HttpRequest &request) override;
    [[nodiscard]] QFuture<TcpResult> connect(const QString &host, quint16 port,
                                             std::chrono::milliseconds timeout) override;
    /// Loads nothing: what isn't loaded has no connections.
    void dropConnections() override;

private:
    void load();
    /// Loads it, the first time.
    [[nodiscard]] Network &network();

    QString m_library;
    std::once_flag m_loading;
    std::unique_ptr<Network> m_network;
    bool (*m_isLeftBehind)() = nullptr; ///< The library's.
    std::atomic<Network *> m_loaded = nullptr;
};

} // namespace ostrel
