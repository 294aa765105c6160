#include "LoopbackListener.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

namespace ostrel::test {

namespace {

sockaddr_in ipv4Address(quint16 port, in_addr_t host = INADDR_LOOPBACK)
{
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(host);
    return address;
}

sockaddr_in6 ipv6Address()
{
    sockaddr_in6 address{};
    address.sin6_family = AF_INET6;
    address.sin6_addr = in6addr_loopback;
    return address;
}

template<typename Address>
bool bindTo(int descriptor, const Address &address)
{
    return bind(descriptor, reinterpret_cast<const sockaddr *>(&address), sizeof address) == 0;
}

bool bindToFreePort(int descriptor, LoopbackFamily family)
{
    if (family == LoopbackFamily::Ipv6)
        return bindTo(descriptor, ipv6Address());
    const bool isSecond = family == LoopbackFamily::SecondIpv4;
    return bindTo(descriptor, ipv4Address(0, INADDR_LOOPBACK + (isSecond ? 1 : 0)));
}

quint16 portOf(int descriptor)
{
    // The port is at the same offset for both families.
    sockaddr_in6 address{};
    socklen_t size = sizeof address;
    getsockname(descriptor, reinterpret_cast<sockaddr *>(&address), &size);
    return ntohs(address.sin6_port);
}

} // namespace

LoopbackListener::LoopbackListener(LoopbackFamily family, int backlog)
    : m_descriptor(socket(family == LoopbackFamily::Ipv6 ? AF_INET6 : AF_INET,
                          SOCK_STREAM | SOCK_CLOEXEC, 0))
{
    if (bindToFreePort(m_descriptor, family) && listen(m_descriptor, backlog) == 0)
        m_port = portOf(m_descriptor);
}

LoopbackListener::~LoopbackListener()
{
    close(m_descriptor);
}

BlackholePort::BlackholePort()
    : m_listener(LoopbackFamily::Ipv4, 0)
    , m_filler(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0))
{
    // A backlog of zero still accepts one.
    const sockaddr_in address = ipv4Address(m_listener.port());
    (void)connect(m_filler, reinterpret_cast<const sockaddr *>(&address), sizeof address);
}

BlackholePort::~BlackholePort()
{
    close(m_filler);
}

quint16 closedPort()
{
    return LoopbackListener().port();
}

} // namespace ostrel::test
