#include "LeafCertificate.h"

#include "TlsDelegate.h"

#include <openssl/ssl.h>
#include <openssl/x509.h>
#include <openssl/x509_vfy.h>

#include <ctime>
#include <optional>

namespace ostrel {

namespace {

std::optional<std::chrono::sys_seconds> toSysSeconds(const ASN1_TIME *time)
{
    using namespace std::chrono;
    std::tm parts{};
    if (time == nullptr || ASN1_TIME_to_tm(time, &parts) != 1)
        return std::nullopt;
    const year_month_day date(year(parts.tm_year + 1900),
                              month(static_cast<unsigned>(parts.tm_mon + 1)),
                              day(static_cast<unsigned>(parts.tm_mday)));
    return sys_days(date) + hours(parts.tm_hour) + minutes(parts.tm_min) + seconds(parts.tm_sec);
}

TlsDelegate *delegateOf(X509_STORE_CTX *verification)
{
    const int index = SSL_get_ex_data_X509_STORE_CTX_idx();
    const auto *connection = static_cast<SSL *>(X509_STORE_CTX_get_ex_data(verification, index));
    return static_cast<TlsDelegate *>(SSL_CTX_get_app_data(SSL_get_SSL_CTX(connection)));
}

int didVerify(int isTrustedSoFar, X509_STORE_CTX *verification)
{
    // Not only at depth 0: a chain that fails above the leaf never gets down to it.
    if (X509 *leaf = X509_STORE_CTX_get0_cert(verification)) {
        if (const auto notAfter = toSysSeconds(X509_get0_notAfter(leaf)))
            delegateOf(verification)->didReceiveLeafCertificate(*notAfter);
    }
    return isTrustedSoFar;
}

} // namespace

void reportLeafCertificate(SSL_CTX *context, TlsDelegate &delegate)
{
    SSL_CTX_set_app_data(context, &delegate);
    SSL_CTX_set_verify(context, SSL_CTX_get_verify_mode(context), didVerify);
}

} // namespace ostrel
