#pragma once

#include <QByteArray>

#include <memory>

namespace ostrel {

/// Where the certificates of trusted authorities are.
struct TrustStore
{
    QByteArray directory; ///< Hashed, as OpenSSL's rehash makes it; empty for none.
    QByteArray file;      ///< A PEM bundle; empty for none.

    /// What OpenSSL's SSL_CERT_DIR and SSL_CERT_FILE name, where one is set; else the system's
    /// hashed directory, which is read as needed; else the system's bundle.
    [[nodiscard]] static TrustStore system();
};

struct IoThreadConfiguration
{
    int maxConcurrentTransfers = 64;
    TrustStore trustStore = TrustStore::system();
};

/// The one thread on which all of the network's work is done, and measured.
///
/// A bounded number of transfers runs at once; the others wait in order, and the clock of each
/// starts when it is admitted.
class IoThread
{
public:
    explicit IoThread(IoThreadConfiguration configuration = {});
    /// Ends every transfer, whose future is cancelled, and then the thread.
    ~IoThread();
    IoThread(const IoThread &) = delete;
    IoThread &operator=(const IoThread &) = delete;

    /// After a sleep, sockets and look-ups are worthless: forgets them all. Transfers under way
    /// begin anew, once each, with their whole time-out before them. Any thread.
    void renewConnections();

    class Worker;
    /// For the clients of this folder.
    [[nodiscard]] Worker &worker() const { return *m_worker; }

private:
    std::unique_ptr<Worker> m_worker;
};

} // namespace ostrel
