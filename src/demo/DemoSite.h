#pragma once

#include "DemoCertificate.h"

#include <QByteArray>
#include <QElapsedTimer>
#include <QObject>
#include <QTcpServer>
#include <QTimer>

#include <chrono>
#include <functional>
#include <memory>

class QTcpSocket;

namespace ostrel {

/// How a demo's site answers at one moment.
struct DemoAnswer
{
    int status = 200;
    std::chrono::milliseconds delay{0};
    QByteArray page = {};
};

/// A real website on a free port of a loopback address, whose answers depend on the time since
/// its start. Main thread.
class DemoWebsite : public QObject
{
    Q_OBJECT

public:
    using Behaviour = std::function<DemoAnswer(std::chrono::milliseconds sinceStart)>;

    /// @p host is the last part of its address, 127.0.0.HOST, so that each site is one of its own;
    /// where there is only 127.0.0.1, that is used.
    DemoWebsite(quint8 host, Behaviour behaviour, QObject *parent = nullptr);

    /// Takes a port; false if there is none. With a certificate it speaks TLS only.
    [[nodiscard]] bool start();
    [[nodiscard]] bool startWith(const DemoCertificate &certificate);
    /// For example "http://127.0.0.1:8080/".
    [[nodiscard]] QString address() const;

private:
    [[nodiscard]] bool listen(std::unique_ptr<QTcpServer> server, const QString &scheme);
    void acceptAll();
    void read(QTcpSocket *socket);
    void answer(QTcpSocket *socket);

    quint8 m_host;
    Behaviour m_behaviour;
    std::unique_ptr<QTcpServer> m_server;
    QString m_scheme;
    QElapsedTimer m_sinceStart;
};

/// A port of the loopback address that is closed and open by turns. Main thread.
class DemoPort : public QObject
{
    Q_OBJECT

public:
    /// It is closed first.
    DemoPort(std::chrono::milliseconds closed, std::chrono::milliseconds open,
             QObject *parent = nullptr);

    /// Chooses the port; false if there is none.
    [[nodiscard]] bool start();
    [[nodiscard]] quint16 number() const { return m_number; }

private:
    void change();

    std::chrono::milliseconds m_closed;
    std::chrono::milliseconds m_open;
    QTcpServer m_server;
    quint16 m_number = 0;
    QTimer m_change;
};

} // namespace ostrel
