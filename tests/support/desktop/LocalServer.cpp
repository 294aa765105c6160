#include "LocalServer.h"

#include <QFile>

#include <algorithm>
#include <array>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace ostrel::test {

LocalServer::LocalServer(const QByteArray &greeting, const QByteArray &reply)
    : m_greeting(greeting)
    , m_reply(reply)
    , m_listener(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0))
{
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    std::ranges::copy(QFile::encodeName(m_folder.filePath(u"bus"_s)), address.sun_path);
    ::bind(m_listener, reinterpret_cast<const sockaddr *>(&address), sizeof(address));
    ::listen(m_listener, 8);
    m_thread = std::thread(&LocalServer::serve, this);
}

LocalServer::~LocalServer()
{
    ::shutdown(m_listener, SHUT_RDWR); // Ends the wait for a client.
    m_thread.join();
    ::close(m_listener);
}

QByteArray LocalServer::address() const
{
    return "unix:path=" + QFile::encodeName(m_folder.filePath(u"bus"_s));
}

void LocalServer::serve()
{
    for (int client = ::accept(m_listener, nullptr, nullptr); client >= 0;
         client = ::accept(m_listener, nullptr, nullptr)) {
        converse(client);
        ::close(client);
    }
}

/// Serves @p client until it hangs up.
void LocalServer::converse(int client) const
{
    std::array<char, 4096> bytes;
    int calls = 0;
    while (::recv(client, bytes.data(), bytes.size(), 0) > 0) {
        const QByteArray answer = calls == 0 ? m_greeting : calls == 1 ? m_reply : QByteArray();
        ++calls;
        ::send(client, answer.constData(), static_cast<std::size_t>(answer.size()), MSG_NOSIGNAL);
    }
}

} // namespace ostrel::test
