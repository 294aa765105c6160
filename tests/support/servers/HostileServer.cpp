#include "HostileServer.h"

#include <array>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <unistd.h>
#include <utility>

namespace ostrel::test {

HostileServer::HostileServer(Behaviour behaviour, Greeting greeting, LoopbackFamily family)
    : m_behaviour(std::move(behaviour))
    , m_greeting(greeting)
    , m_listener(family)
    , m_stopDescriptor(eventfd(0, EFD_CLOEXEC))
    , m_thread([this] { acceptConnections(); })
{
}

HostileServer::~HostileServer()
{
    eventfd_write(m_stopDescriptor, 1);
    m_thread.join();
    for (std::thread &connection : m_connections)
        connection.join();
    close(m_stopDescriptor);
}

QByteArray HostileServer::url(const QByteArray &path, const QByteArray &scheme) const
{
    return scheme + "://127.0.0.1:" + QByteArray::number(port()) + path;
}

QList<SeenRequest> HostileServer::requests() const
{
    const std::lock_guard lock(m_mutex);
    return m_requests;
}

int HostileServer::connectionCount() const
{
    const std::lock_guard lock(m_mutex);
    return static_cast<int>(m_connections.size());
}

void HostileServer::acceptConnections()
{
    std::array<pollfd, 2> both{
        pollfd{.fd = m_listener.descriptor(), .events = POLLIN, .revents = 0},
        pollfd{.fd = m_stopDescriptor, .events = POLLIN, .revents = 0}};
    while (poll(both.data(), both.size(), -1) > 0 && both[1].revents == 0) {
        const int descriptor = accept4(m_listener.descriptor(), nullptr, nullptr, SOCK_CLOEXEC);
        if (descriptor < 0)
            continue;
        const std::lock_guard lock(m_mutex);
        m_connections.emplace_back([this, descriptor] { serve(descriptor); });
    }
}

void HostileServer::serve(int descriptor)
{
    HostileConnection connection(descriptor, m_stopDescriptor);
    SeenRequest request;
    if (m_greeting == Greeting::ReadRequest) {
        auto seen = connection.readRequest();
        if (!seen)
            return;
        request = *seen;
        const std::lock_guard lock(m_mutex);
        m_requests.append(request);
    }
    m_behaviour(connection, request);
}

} // namespace ostrel::test
