#include "DemoCertificate.h"

#include <openssl/evp.h>
#include <openssl/pem.h>
#include <openssl/x509v3.h>

#include <memory>

namespace ostrel {

namespace {

template<auto release>
struct Release
{
    template<typename Handle>
    void operator()(Handle *handle) const
    {
        release(handle);
    }
};

using Key = std::unique_ptr<EVP_PKEY, Release<EVP_PKEY_free>>;
using Certificate = std::unique_ptr<X509, Release<X509_free>>;

struct Extension
{
    int kind;
    const char *value;
};

/// A certificate of @p subject for @p key that nobody has signed yet.
Certificate unsignedCertificate(const char *subject, EVP_PKEY *key, std::chrono::seconds lifetime,
                                std::initializer_list<Extension> extensions)
{
    constexpr long aDay = 24L * 60 * 60;
    static long serial = 0;
    Certificate made(X509_new());
    X509_set_version(made.get(), X509_VERSION_3);
    ASN1_INTEGER_set(X509_get_serialNumber(made.get()), ++serial);
    X509_gmtime_adj(X509_getm_notBefore(made.get()), -aDay);
    X509_gmtime_adj(X509_getm_notAfter(made.get()), static_cast<long>(lifetime.count()));
    X509_NAME_add_entry_by_txt(X509_get_subject_name(made.get()), "CN", MBSTRING_UTF8,
                               reinterpret_cast<const unsigned char *>(subject), -1, -1, 0);
    X509_set_pubkey(made.get(), key);
    X509V3_CTX context;
    X509V3_set_ctx_nodb(&context);
    X509V3_set_ctx(&context, made.get(), made.get(), nullptr, nullptr, 0);
    for (const Extension &each : extensions) {
        X509_EXTENSION *extension = X509V3_EXT_conf_nid(nullptr, &context, each.kind, each.value);
        X509_add_ext(made.get(), extension, -1);
        X509_EXTENSION_free(extension);
    }
    return made;
}

template<typename Write>
QByteArray pemOf(Write write)
{
    const std::unique_ptr<BIO, Release<BIO_free_all>> memory(BIO_new(BIO_s_mem()));
    if (!memory || write(memory.get()) != 1)
        return {};
    char *bytes = nullptr;
    const long size = BIO_get_mem_data(memory.get(), &bytes);
    return {bytes, size};
}

QByteArray pemOf(X509 *certificate)
{
    return pemOf([=](BIO *out) { return PEM_write_bio_X509(out, certificate); });
}

} // namespace

DemoCertificate DemoCertificate::make(int host, std::chrono::seconds lifetime)
{
    const Key authorityKey(EVP_EC_gen("P-256"));
    const Key key(EVP_EC_gen("P-256"));
    if (!authorityKey || !key)
        return {};
    const Certificate authority =
        unsignedCertificate("Ostrel demo authority", authorityKey.get(), lifetime,
                            {{NID_basic_constraints, "critical,CA:TRUE"},
                             {NID_name_constraints, "critical,permitted;IP:127.0.0.0/255.0.0.0"}});
    X509_set_issuer_name(authority.get(), X509_get_subject_name(authority.get()));
    const QByteArray names = "IP:127.0.0.1,IP:127.0.0." + QByteArray::number(host);
    const Certificate leaf = unsignedCertificate("Ostrel demo site", key.get(), lifetime,
                                                 {{NID_subject_alt_name, names.constData()}});
    X509_set_issuer_name(leaf.get(), X509_get_subject_name(authority.get()));
    if (X509_sign(authority.get(), authorityKey.get(), EVP_sha256()) == 0 ||
        X509_sign(leaf.get(), authorityKey.get(), EVP_sha256()) == 0)
        return {};
    return {.authority = pemOf(authority.get()),
            .certificate = pemOf(leaf.get()),
            .key = pemOf([&](BIO *out) {
                return PEM_write_bio_PrivateKey(out, key.get(), nullptr, nullptr, 0, nullptr,
                                                nullptr);
            })};
}

} // namespace ostrel
