#pragma once

#include <chrono>

namespace ostrel {

/// Observes the verification of a server's certificate. Never influences the outcome.
class TlsDelegate
{
public:
    TlsDelegate() = default;
    TlsDelegate(const TlsDelegate &) = delete;
    TlsDelegate &operator=(const TlsDelegate &) = delete;
    virtual ~TlsDelegate() = default;

    /// A server has presented its leaf certificate, which expires at @p notAfter. Called on the I/O
    /// thread, during the handshake, before the verdict, at least once for every TLS server on the
    /// way except proxies. Every call comes before the request's future finishes.
    virtual void didReceiveLeafCertificate(std::chrono::sys_seconds notAfter) = 0;
};

} // namespace ostrel
