#include "DemoSite.h"

#include <QSslConfiguration>
#include <QSslKey>
#include <QSslServer>
#include <QTcpSocket>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

using namespace std::chrono_literals;

constexpr qsizetype longestRequest = 16'384;
/// No client of the demo needs longer.
constexpr auto longestVisit = 60s;

QByteArray reasonOf(int status)
{
    return status == 200 ? "OK" : "Service Unavailable";
}

QByteArray responseOf(const DemoAnswer &answer, bool hasBody)
{
    return "HTTP/1.1 " + QByteArray::number(answer.status) + ' ' + reasonOf(answer.status) +
           "\r\nContent-Type: text/html; charset=utf-8\r\nContent-Length: " +
           QByteArray::number(answer.page.size()) + "\r\nConnection: close\r\n\r\n" +
           (hasBody ? answer.page : QByteArray());
}

} // namespace

DemoWebsite::DemoWebsite(quint8 host, Behaviour behaviour, QObject *parent)
    : QObject(parent)
    , m_host(host)
    , m_behaviour(std::move(behaviour))
{
}

bool DemoWebsite::start()
{
    return listen(std::make_unique<QTcpServer>(), u"http"_s);
}

bool DemoWebsite::startWith(const DemoCertificate &certificate)
{
    auto configuration = QSslConfiguration::defaultConfiguration();
    configuration.setLocalCertificate(QSslCertificate(certificate.certificate));
    configuration.setPrivateKey(QSslKey(certificate.key, QSsl::Ec));
    auto server = std::make_unique<QSslServer>();
    server->setSslConfiguration(configuration);
    return listen(std::move(server), u"https"_s);
}

QString DemoWebsite::address() const
{
    return u"%1://%2:%3/"_s.arg(m_scheme, m_server->serverAddress().toString())
        .arg(m_server->serverPort());
}

bool DemoWebsite::listen(std::unique_ptr<QTcpServer> server, const QString &scheme)
{
    m_server = std::move(server);
    m_scheme = scheme;
    m_sinceStart.start();
    connect(m_server.get(), &QTcpServer::pendingConnectionAvailable, this, &DemoWebsite::acceptAll);
    constexpr quint32 loopbackNetwork = 0x7f000000;
    return m_server->listen(QHostAddress(loopbackNetwork + m_host)) ||
           m_server->listen(QHostAddress::LocalHost);
}

void DemoWebsite::acceptAll()
{
    while (QTcpSocket *socket = m_server->nextPendingConnection()) {
        connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
        connect(socket, &QTcpSocket::readyRead, this, [this, socket] { read(socket); });
        QTimer::singleShot(longestVisit, socket, &QTcpSocket::abort);
        read(socket);
    }
}

void DemoWebsite::read(QTcpSocket *socket)
{
    const QByteArray request = socket->peek(longestRequest);
    if (request.size() == longestRequest)
        return socket->abort();
    if (!request.contains("\r\n\r\n"))
        return;
    socket->disconnect(this); // It is answered once.
    answer(socket);
}

void DemoWebsite::answer(QTcpSocket *socket)
{
    const bool hasBody = !socket->readAll().startsWith("HEAD ");
    const auto now = std::chrono::milliseconds(m_sinceStart.elapsed());
    const DemoAnswer answer = m_behaviour(now);
    QTimer::singleShot(answer.delay, socket, [=] {
        socket->write(responseOf(answer, hasBody));
        socket->disconnectFromHost();
    });
}

DemoPort::DemoPort(std::chrono::milliseconds closed, std::chrono::milliseconds open,
                   QObject *parent)
    : QObject(parent)
    , m_closed(closed)
    , m_open(open)
{
    m_change.setSingleShot(true);
    connect(&m_change, &QTimer::timeout, this, &DemoPort::change);
}

bool DemoPort::start()
{
    if (!m_server.listen(QHostAddress::LocalHost))
        return false;
    m_number = m_server.serverPort();
    change();
    return true;
}

void DemoPort::change()
{
    if (m_server.isListening()) {
        m_server.close();
        return m_change.start(m_closed);
    }
    // If another program has taken the port meanwhile, it is open all the same.
    m_server.listen(QHostAddress::LocalHost, m_number);
    m_change.start(m_open);
}

} // namespace ostrel
