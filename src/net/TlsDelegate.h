#pragma once

#include <chrono>

namespace ostrel {

/// Looks on while a server's certificate is verified. Never has a say in the outcome.
class TlsDelegate
{
public:
    TlsDelegate() = default;
    TlsDelegate(const TlsDelegate &) = delete;
    TlsDelegate &operator=(const TlsDelegate &) = delete;
    virtual ~TlsDelegate() = default;

    /// A server has shown its leaf certificate, which ends at @p notAfter. Called on the I/O
    /// thread, during the handshake, before the verdict, once or more for every TLS server on the
    /// way, but for proxies; every call happens before the request's future is finished.
    virtual void didReceiveLeafCertificate(std::chrono::sys_seconds notAfter) = 0;
};

} // namespace ostrel
