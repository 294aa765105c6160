#pragma once

#include "HostileConnection.h"
#include "LoopbackListener.h"

#include <QList>

#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace ostrel::test {

/// A server on a free port of loopback that misbehaves as no decent server would, from construction
/// to destruction. Every connection has its own thread.
class HostileServer
{
public:
    /// Handles each connection, on the connection's thread, until it returns: the connection is
    /// then closed. HostileBehaviours.h has a collection.
    using Behaviour = std::function<void(HostileConnection &, const SeenRequest &)>;

    enum class Greeting {
        ReadRequest, ///< The behaviour starts when a request's head has arrived.
        None         ///< It starts at once, with an empty request: for what isn't HTTP.
    };

    explicit HostileServer(Behaviour behaviour, Greeting greeting = Greeting::ReadRequest,
                           LoopbackFamily family = LoopbackFamily::Ipv4);
    /// Ends all connections.
    ~HostileServer();
    HostileServer(const HostileServer &) = delete;
    HostileServer &operator=(const HostileServer &) = delete;

    /// False if the computer has no loopback address of the family.
    [[nodiscard]] bool isListening() const { return m_listener.isListening(); }
    [[nodiscard]] quint16 port() const { return m_listener.port(); }
    /// "http://127.0.0.1:8080/path".
    [[nodiscard]] QByteArray url(const QByteArray &path = "/",
                                 const QByteArray &scheme = "http") const;
    /// Every request whose head has arrived, in order of arrival.
    [[nodiscard]] QList<SeenRequest> requests() const;
    [[nodiscard]] int connectionCount() const;

private:
    void acceptConnections();
    void serve(int descriptor);

    Behaviour m_behaviour;
    Greeting m_greeting;
    LoopbackListener m_listener;
    int m_stopDescriptor;
    mutable std::mutex m_mutex; ///< Guards what follows.
    QList<SeenRequest> m_requests;
    std::vector<std::thread> m_connections;
    std::thread m_thread;
};

} // namespace ostrel::test
