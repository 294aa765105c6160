#include "TlsBehaviours.h"

#include <openssl/ssl.h>

#include <algorithm>
#include <array>
#include <functional>
#include <memory>

namespace ostrel::test {

namespace {

/// The server's end of TLS over a connection.
class TlsConnection
{
public:
    TlsConnection(HostileConnection &connection, const TestLeaf &leaf)
        : m_connection(connection)
    {
        SSL_CTX_use_certificate_chain_file(m_context.get(), qPrintable(leaf.chainFile));
        SSL_CTX_use_PrivateKey_file(m_context.get(), qPrintable(leaf.keyFile), SSL_FILETYPE_PEM);
        m_tls.reset(SSL_new(m_context.get()));
        SSL_set_bio(m_tls.get(), BIO_new(BIO_s_mem()), BIO_new(BIO_s_mem()));
        SSL_set_accept_state(m_tls.get());
    }

    /// Does the handshake first if necessary.
    bool readSome()
    {
        std::array<char, 4096> buffer{};
        return complete([&] { return SSL_read(m_tls.get(), buffer.data(), int(buffer.size())); });
    }

    bool send(const QByteArray &bytes)
    {
        return complete(
            [&] { return SSL_write(m_tls.get(), bytes.constData(), int(bytes.size())); });
    }

    /// The peer's plain bytes in @p bytes, some of which may belong to TLS itself.
    QByteArray decrypt(const QByteArray &bytes)
    {
        BIO_write(SSL_get_rbio(m_tls.get()), bytes.constData(), int(bytes.size()));
        QByteArray said;
        std::array<char, 4096> buffer{};
        for (int count = 1; count > 0;) {
            count = SSL_read(m_tls.get(), buffer.data(), int(buffer.size()));
            said.append(buffer.data(), std::max(count, 0));
        }
        sendPending();
        return said;
    }

    QByteArray encrypt(const QByteArray &bytes)
    {
        SSL_write(m_tls.get(), bytes.constData(), int(bytes.size()));
        return takePending();
    }

private:
    /// Repeats @p step until it succeeds, or the peer has gone.
    bool complete(const std::function<int()> &step)
    {
        for (;;) {
            const int result = step();
            const bool wantsMore = SSL_get_error(m_tls.get(), result) == SSL_ERROR_WANT_READ;
            if (!sendPending() || (result <= 0 && !wantsMore))
                return false;
            if (result > 0)
                return true;
            if (!receivePending())
                return false;
        }
    }

    QByteArray takePending()
    {
        char *bytes = nullptr;
        BIO *out = SSL_get_wbio(m_tls.get());
        const long count = BIO_get_mem_data(out, &bytes);
        const QByteArray pending(bytes, count);
        BIO_reset(out);
        return pending;
    }

    bool sendPending() { return m_connection.send(takePending()); }

    bool receivePending()
    {
        const auto bytes = m_connection.receive();
        return bytes && BIO_write(SSL_get_rbio(m_tls.get()), bytes->constData(),
                                  int(bytes->size())) == bytes->size();
    }

    struct Free
    {
        void operator()(SSL_CTX *context) const { SSL_CTX_free(context); }
        void operator()(SSL *tls) const { SSL_free(tls); }
    };

    HostileConnection &m_connection;
    std::unique_ptr<SSL_CTX, Free> m_context{SSL_CTX_new(TLS_server_method())};
    std::unique_ptr<SSL, Free> m_tls;
};

} // namespace

HostileServer::Behaviour closeWithoutNotify(const TestLeaf &leaf, const QByteArray &response)
{
    return [leaf, response](HostileConnection &connection, const SeenRequest &) {
        TlsConnection tls(connection, leaf);
        if (tls.readSome())
            tls.send(response);
    };
}

HostileServer::Behaviour terminateTls(const TestLeaf &leaf, quint16 port)
{
    return [leaf, port](HostileConnection &connection, const SeenRequest &) {
        TlsConnection tls(connection, leaf);
        connection.relayTo(
            port, [&tls](const QByteArray &bytes) { return tls.decrypt(bytes); },
            [&tls](const QByteArray &bytes) { return tls.encrypt(bytes); });
    };
}

} // namespace ostrel::test
