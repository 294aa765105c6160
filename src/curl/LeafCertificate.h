#pragma once

#include <openssl/types.h>

namespace ostrel {

class TlsDelegate;

/// Has every verification under @p context tell @p delegate when the server's leaf certificate
/// ends, whether or not the certificate is then trusted. What is trusted doesn't change. The
/// delegate outlives the context's connections; it hears nothing where the date can't be read.
void reportLeafCertificate(SSL_CTX *context, TlsDelegate &delegate);

} // namespace ostrel
