#pragma once

#include <QByteArray>

namespace ostrel {

/// The location of the trusted authorities' certificates.
struct TrustStore
{
    QByteArray directory; ///< Hashed, as OpenSSL's rehash makes it; empty if there is none.
    QByteArray file;      ///< A PEM bundle; empty if there is none.

    /// What OpenSSL's SSL_CERT_DIR and SSL_CERT_FILE name, if one of them is set; else the system's
    /// hashed directory, which is read on demand; else the system's bundle.
    [[nodiscard]] static TrustStore system();
};

} // namespace ostrel
