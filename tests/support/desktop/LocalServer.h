#pragma once

#include <QByteArray>
#include <QTemporaryDir>

#include <thread>

namespace ostrel::test {

/// Plays a message bus that knows two answers: one to the first bytes that a client sends, one to
/// the next. After those it is silent. Serves one client after the other, on its own thread.
class LocalServer
{
public:
    LocalServer(const QByteArray &greeting, const QByteArray &reply);
    ~LocalServer();
    LocalServer(const LocalServer &) = delete;
    LocalServer &operator=(const LocalServer &) = delete;

    /// The address in the form of DBUS_SESSION_BUS_ADDRESS.
    [[nodiscard]] QByteArray address() const;

private:
    void serve();
    void converse(int client) const;

    QTemporaryDir m_folder;
    QByteArray m_greeting;
    QByteArray m_reply;
    int m_listener;
    std::thread m_thread;
};

} // namespace ostrel::test
