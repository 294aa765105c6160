#pragma once

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

#include <chrono>
#include <memory>

namespace ostrel::test {

/// A leaf certificate on disk, ready for a server.
struct TestLeaf
{
    QString chainFile; ///< PEM: the leaf first, then its intermediates.
    QString keyFile;   ///< PEM.
    std::chrono::sys_seconds notAfter;
};

/// A certificate authority of this test's own, created on construction, in a fresh folder that is
/// removed with it. Unless said otherwise, its leaves are for localhost, 127.0.0.1 and ::1, and
/// expire at some odd second in about three months.
class TestCertificates
{
public:
    enum class Key { Rsa, Ecdsa };

    TestCertificates();
    ~TestCertificates();
    TestCertificates(const TestCertificates &) = delete;
    TestCertificates &operator=(const TestCertificates &) = delete;

    /// The authority's certificate as a PEM bundle, for TrustStore::file.
    [[nodiscard]] QByteArray authorityFile() const;
    /// The same in a hashed directory, for TrustStore::directory.
    [[nodiscard]] QByteArray authorityDirectory() const;

    [[nodiscard]] TestLeaf valid(Key key = Key::Ecdsa);
    /// Expires @p lifetime from now, to the second.
    [[nodiscard]] TestLeaf validFor(std::chrono::seconds lifetime);
    /// Expired a week ago.
    [[nodiscard]] TestLeaf expired();
    [[nodiscard]] TestLeaf selfSigned();
    /// Trusted, but only for elsewhere.example.
    [[nodiscard]] TestLeaf forAnotherHost();
    /// Signed by an intermediate that expires sooner than the leaf and is in the chain.
    [[nodiscard]] TestLeaf underShortLivedIntermediate();
    /// Signed by an intermediate that has expired and is in the chain; the leaf hasn't.
    [[nodiscard]] TestLeaf underExpiredIntermediate();

private:
    struct Identity;

    [[nodiscard]] TestLeaf issue(const Identity &leaf, const QByteArray &intermediates = {});
    [[nodiscard]] TestLeaf underIntermediate(std::chrono::seconds intermediateLifetime);
    [[nodiscard]] QString write(const QString &name, const QByteArray &pem) const;

    QTemporaryDir m_folder;
    std::unique_ptr<Identity> m_authority;
    int m_leafCount = 0;
};

} // namespace ostrel::test
