#pragma once

#include <QByteArray>

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

} // namespace ostrel
