#include "TestCertificates.h"

#include <QDir>
#include <QFile>
#include <QUuid>

#include <openssl/evp.h>
#include <openssl/pem.h>
#include <openssl/rsa.h>
#include <openssl/x509v3.h>

#include <atomic>

using namespace Qt::StringLiterals;

namespace ostrel::test {

using namespace std::chrono;

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

using KeyHandle = std::unique_ptr<EVP_PKEY, Release<EVP_PKEY_free>>;
using CertificateHandle = std::unique_ptr<X509, Release<X509_free>>;

// Deliberately odd, so that no rounding goes unnoticed.
constexpr auto usualLifetime = days(90) + seconds(12345);
constexpr auto localNames = "DNS:localhost,IP:127.0.0.1,IP:::1";

KeyHandle makeKey(TestCertificates::Key key)
{
    return KeyHandle(key == TestCertificates::Key::Rsa ? EVP_RSA_gen(2048) : EVP_EC_gen("P-256"));
}

sys_seconds now()
{
    return floor<seconds>(system_clock::now());
}

void addExtension(X509 *certificate, int kind, const char *value)
{
    X509V3_CTX context;
    X509V3_set_ctx_nodb(&context);
    X509V3_set_ctx(&context, certificate, certificate, nullptr, nullptr, 0);
    X509_EXTENSION *extension = X509V3_EXT_conf_nid(nullptr, &context, kind, value);
    X509_add_ext(certificate, extension, -1);
    X509_EXTENSION_free(extension);
}

void setName(X509_NAME *name, const QByteArray &text)
{
    const auto *bytes = reinterpret_cast<const unsigned char *>(text.constData());
    X509_NAME_add_entry_by_txt(name, "CN", MBSTRING_UTF8, bytes, static_cast<int>(text.size()), -1,
                               0);
}

void setValidity(X509 *certificate, sys_seconds notAfter)
{
    ASN1_TIME_set(X509_getm_notBefore(certificate),
                  system_clock::to_time_t(std::min(now(), notAfter) - days(30)));
    ASN1_TIME_set(X509_getm_notAfter(certificate), system_clock::to_time_t(notAfter));
}

template<typename Writer>
QByteArray pemOf(Writer write)
{
    const std::unique_ptr<BIO, Release<BIO_free_all>> memory(BIO_new(BIO_s_mem()));
    write(memory.get());
    char *bytes = nullptr;
    const long size = BIO_get_mem_data(memory.get(), &bytes);
    return {bytes, size};
}

} // namespace

/// A key and the certificate for it.
struct TestCertificates::Identity
{
    struct Profile
    {
        QByteArray name;
        QByteArray alternativeNames; ///< Empty for an authority.
        sys_seconds notAfter;
        Key keyKind = Key::Ecdsa;
    };

    /// Signed by @p issuer, or by itself if that is null.
    Identity(const Profile &profile, const Identity *issuer);

    [[nodiscard]] QByteArray certificatePem() const;
    [[nodiscard]] QByteArray keyPem() const;

    KeyHandle key;
    CertificateHandle certificate;
    sys_seconds notAfter;
};

TestCertificates::Identity::Identity(const Profile &profile, const Identity *issuer)
    : key(makeKey(profile.keyKind))
    , certificate(X509_new())
    , notAfter(profile.notAfter)
{
    static std::atomic<long> serial = 1000;
    X509 *made = certificate.get();
    X509_set_version(made, X509_VERSION_3);
    ASN1_INTEGER_set(X509_get_serialNumber(made), ++serial);
    setName(X509_get_subject_name(made), profile.name);
    X509_set_issuer_name(made, X509_get_subject_name(issuer ? issuer->certificate.get() : made));
    setValidity(made, profile.notAfter);
    X509_set_pubkey(made, key.get());
    if (profile.alternativeNames.isEmpty())
        addExtension(made, NID_basic_constraints, "critical,CA:TRUE");
    else
        addExtension(made, NID_subject_alt_name, profile.alternativeNames.constData());
    X509_sign(made, issuer ? issuer->key.get() : key.get(), EVP_sha256());
}

QByteArray TestCertificates::Identity::certificatePem() const
{
    return pemOf([this](BIO *out) { PEM_write_bio_X509(out, certificate.get()); });
}

QByteArray TestCertificates::Identity::keyPem() const
{
    return pemOf([this](BIO *out) {
        PEM_write_bio_PrivateKey(out, key.get(), nullptr, nullptr, 0, nullptr, nullptr);
    });
}

TestCertificates::TestCertificates()
    // No two authorities have the same name, because issuers are found by name.
    : m_authority(std::make_unique<Identity>(
          Identity::Profile{.name = "Test authority " + QUuid::createUuid().toByteArray(),
                            .alternativeNames = {},
                            .notAfter = now() + days(3650)},
          nullptr))
{
    const unsigned long hash = X509_subject_name_hash(m_authority->certificate.get());
    QDir(m_folder.path()).mkdir(u"hashed"_s);
    (void)write(u"hashed/%1.0"_s.arg(hash, 8, 16, QLatin1Char('0')), m_authority->certificatePem());
    (void)write(u"authority.pem"_s, m_authority->certificatePem());
}

TestCertificates::~TestCertificates() = default;

QByteArray TestCertificates::authorityFile() const
{
    return QFile::encodeName(m_folder.filePath(u"authority.pem"_s));
}

QByteArray TestCertificates::authorityDirectory() const
{
    return QFile::encodeName(m_folder.filePath(u"hashed"_s));
}

TestLeaf TestCertificates::valid(Key key)
{
    return issue(Identity({.name = "localhost",
                           .alternativeNames = localNames,
                           .notAfter = now() + usualLifetime,
                           .keyKind = key},
                          m_authority.get()));
}

TestLeaf TestCertificates::validFor(seconds lifetime)
{
    return issue(Identity(
        {.name = "localhost", .alternativeNames = localNames, .notAfter = now() + lifetime},
        m_authority.get()));
}

TestLeaf TestCertificates::expired()
{
    return validFor(-days(7));
}

TestLeaf TestCertificates::selfSigned()
{
    return issue(Identity(
        {.name = "localhost", .alternativeNames = localNames, .notAfter = now() + usualLifetime},
        nullptr));
}

TestLeaf TestCertificates::forAnotherHost()
{
    return issue(Identity({.name = "elsewhere.example",
                           .alternativeNames = "DNS:elsewhere.example",
                           .notAfter = now() + usualLifetime},
                          m_authority.get()));
}

TestLeaf TestCertificates::underShortLivedIntermediate()
{
    return underIntermediate(days(10));
}

TestLeaf TestCertificates::underExpiredIntermediate()
{
    return underIntermediate(-days(1));
}

TestLeaf TestCertificates::issue(const Identity &leaf, const QByteArray &intermediates)
{
    const int number = ++m_leafCount;
    return {.chainFile = write(u"leaf%1.pem"_s.arg(number), leaf.certificatePem() + intermediates),
            .keyFile = write(u"leaf%1.key"_s.arg(number), leaf.keyPem()),
            .notAfter = leaf.notAfter};
}

TestLeaf TestCertificates::underIntermediate(seconds intermediateLifetime)
{
    const Identity intermediate({.name = "Test intermediate",
                                 .alternativeNames = {},
                                 .notAfter = now() + intermediateLifetime},
                                m_authority.get());
    return issue(Identity({.name = "localhost",
                           .alternativeNames = localNames,
                           .notAfter = now() + usualLifetime},
                          &intermediate),
                 intermediate.certificatePem());
}

QString TestCertificates::write(const QString &name, const QByteArray &pem) const
{
    QFile file(m_folder.filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(pem) != pem.size())
        qFatal("Can't write %s", qPrintable(file.fileName()));
    return file.fileName();
}

} // namespace ostrel::test
