#pragma once

#include "Timestamp.h"
#include "TlsDelegate.h"

#include <optional>

namespace ostrel {

/// Records the expiry of the certificate of the server that one request reaches; with redirects, of
/// the last TLS server on the way. Serves one request: written on the I/O thread while that is
/// running, read after it has finished, so it needs no lock.
class SSLCaptureDelegate : public TlsDelegate
{
public:
    void didReceiveLeafCertificate(std::chrono::sys_seconds notAfter) override;

    /// The not-after of the latest leaf certificate; nullopt for plain HTTP.
    [[nodiscard]] std::optional<Timestamp> expiryDate() const { return m_expiryDate; }

private:
    std::optional<Timestamp> m_expiryDate;
};

} // namespace ostrel
