#pragma once

#include <openssl/types.h>

namespace ostrel {

class TlsDelegate;

/// Makes every verification under @p context report the expiry of the server's leaf certificate to
/// @p delegate, whether or not the certificate is then trusted. What is trusted doesn't change. The
/// delegate must outlive the context's connections; it isn't called if the date can't be read.
void reportLeafCertificate(SSL_CTX *context, TlsDelegate &delegate);

} // namespace ostrel
