#pragma once

#include "Network.h"

#include <functional>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

namespace ostrel {

/// A network whose library is loaded, on another thread, when something is first asked of it; what
/// is asked until then waits. Loading the dozens of libraries that come with it takes as long as
/// some of what the first frame needs, and the first frame needs none of them.
///
/// Where the library can't be loaded the program says so and ends with the status 127, as it does
/// without any other of its libraries.
class LazyNetwork : public Network
{
public:
    /// @p library is the file to load; by default that beside the program, else the installed one.
    explicit LazyNetwork(QString library = QString());
    /// Ends what is under way.
    ~LazyNetwork() override;

    [[nodiscard]] QFuture<HttpResult> fetch(const HttpRequest &request) override;
    [[nodiscard]] QFuture<TcpResult> connect(const QString &host, quint16 port,
                                             std::chrono::milliseconds timeout) override;
    /// Loads nothing: what isn't loaded has no connections.
    void renewConnections() override;

private:
    using Ask = std::function<void(Network &)>;

    /// Null before it has been loaded; the same ever after.
    [[nodiscard]] Network *loaded();
    /// What @p ask gets from the network, now or once that is loaded.
    template<typename Result>
    QFuture<Result> whenLoaded(std::function<QFuture<Result>(Network &)> ask);
    /// Begins to load, the first time. @p ask is called on this thread or on that which loads.
    void whenLoaded(Ask ask);
    void load();

    QString m_library;
    std::mutex m_mutex; // Of all that follows.
    std::unique_ptr<Network> m_network;
    std::vector<Ask> m_waiting;
    std::thread m_loader;
};

} // namespace ostrel
