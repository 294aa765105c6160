#include "TrustedCertificates.h"

#include "DateListener.h"
#include "FetchFixture.h"
#include "NginxServer.h"
#include "Printers.h"
#include "TestCertificates.h"
#include "TlsDelegate.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <openssl/x509_vfy.h>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

using testing::HasSubstr;

int countIn(const TrustedCertificates::Store &store)
{
    return sk_X509_OBJECT_num(X509_STORE_get0_objects(store.get()));
}

QByteArray contentOf(const QByteArray &path)
{
    QFile file(QFile::decodeName(path));
    EXPECT_TRUE(file.open(QFile::ReadOnly));
    return file.readAll();
}

/// Paths for certificate files in a fresh folder.
class TrustedCertificatesTest : public testing::Test
{
protected:
    [[nodiscard]] QByteArray path(const QString &name) const
    {
        return QFile::encodeName(m_folder.filePath(name));
    }
    void write(const QByteArray &path, const QByteArray &content) const
    {
        QFile file(QFile::decodeName(path));
        ASSERT_TRUE(file.open(QFile::WriteOnly) && file.write(content) == content.size());
    }

    const QTemporaryDir m_folder;
    const QByteArray m_bundle = path(u"bundle.pem"_s);
    const TestCertificates m_one;
    const TestCertificates m_other;
    const QByteArray m_onesPem = contentOf(m_one.authorityFile());
    const QByteArray m_othersPem = contentOf(m_other.authorityFile());
};

TEST_F(TrustedCertificatesTest, AreParsedOncePerStateOfTheFile)
{
    write(m_bundle, m_onesPem);
    TrustedCertificates certificates({.directory = {}, .file = m_bundle});
    const TrustedCertificates::Store first = certificates.current();
    EXPECT_EQ(countIn(first), 1);
    EXPECT_EQ(certificates.current(), first);

    write(m_bundle, m_onesPem + m_othersPem);
    const TrustedCertificates::Store second = certificates.current();
    EXPECT_NE(second, first);
    EXPECT_EQ(countIn(second), 2);
    EXPECT_EQ(certificates.current(), second);
}

TEST_F(TrustedCertificatesTest, AReplacedTargetOfALinkIsNoticed)
{
    const QByteArray target = path(u"renewed.pem"_s);
    write(target, m_onesPem + m_othersPem);
    write(path(u"old.pem"_s), m_onesPem);
    ASSERT_TRUE(QFile::link(u"old.pem"_s, QFile::decodeName(m_bundle)));
    TrustedCertificates certificates({.directory = {}, .file = m_bundle});
    EXPECT_EQ(countIn(certificates.current()), 1);
    ASSERT_TRUE(QFile::remove(QFile::decodeName(m_bundle)));
    ASSERT_TRUE(QFile::link(u"renewed.pem"_s, QFile::decodeName(m_bundle)));
    EXPECT_EQ(countIn(certificates.current()), 2);
}

TEST_F(TrustedCertificatesTest, ABundleThatComesBackIsRead)
{
    TrustedCertificates certificates({.directory = {}, .file = m_bundle});
    EXPECT_EQ(countIn(certificates.current()), 0);
    write(m_bundle, m_onesPem);
    EXPECT_EQ(countIn(certificates.current()), 1);
    ASSERT_TRUE(QFile::remove(QFile::decodeName(m_bundle)));
    EXPECT_EQ(countIn(certificates.current()), 0);
}

TEST_F(TrustedCertificatesTest, AFileThatIsNoBundleHoldsNoCertificates)
{
    for (const QByteArray &content :
         {QByteArray(), QByteArray("nonsense"), m_onesPem.first(m_onesPem.size() / 2)}) {
        write(m_bundle, content);
        EXPECT_EQ(countIn(TrustedCertificates({.directory = {}, .file = m_bundle}).current()), 0);
    }
    EXPECT_EQ(countIn(TrustedCertificates({.directory = {}, .file = path({})}).current()), 0);
    EXPECT_EQ(countIn(TrustedCertificates({}).current()), 0);
}

TEST_F(TrustedCertificatesTest, APipeDoesNotBlock)
{
    ASSERT_EQ(mkfifo(m_bundle.constData(), 0600), 0);
    EXPECT_EQ(countIn(TrustedCertificates({.directory = {}, .file = m_bundle}).current()), 0);
}

TEST_F(TrustedCertificatesTest, AnAddedFileInTheDirectoryIsNoticed)
{
    const QByteArray directory = path(u"hashed"_s);
    ASSERT_TRUE(QDir().mkdir(QFile::decodeName(directory)));
    TrustedCertificates certificates({.directory = directory, .file = {}});
    const TrustedCertificates::Store first = certificates.current();
    EXPECT_EQ(certificates.current(), first);
    write(directory + "/12345678.0", m_onesPem);
    EXPECT_NE(certificates.current(), first);
}

TEST_F(TrustedCertificatesTest, AnAddedFileInAnyOfSeveralDirectoriesIsNoticed)
{
    const QByteArray directory = path(u"hashed"_s);
    ASSERT_TRUE(QDir().mkdir(QFile::decodeName(directory)));
    TrustedCertificates certificates(
        {.directory = m_one.authorityDirectory() + ':' + directory, .file = {}});
    const TrustedCertificates::Store first = certificates.current();
    write(directory + "/12345678.0", m_onesPem);
    EXPECT_NE(certificates.current(), first);
}

/// Fetches from a real server, whose certificate is signed by m_one.
class TrustedFetchTest : public TrustedCertificatesTest
{
protected:
    [[nodiscard]] HttpResult fetch(const TrustStore &trustStore)
    {
        CurlNetwork network({.trustStore = trustStore});
        return network.fetch(request()).result();
    }
    [[nodiscard]] HttpRequest request() const
    {
        HttpRequest request = requestFor(m_server.url());
        request.tlsDelegate = m_dates;
        return request;
    }

    TestCertificates m_site;
    const NginxServer m_server{{NginxSite{.leaf = m_site.valid()}}};
    std::shared_ptr<DateListener> m_dates = std::make_shared<DateListener>();
};

TEST_F(TrustedFetchTest, ARenewedBundleIsNoticedAtTheNextRequest)
{
    write(m_bundle, m_othersPem);
    CurlNetwork network({.trustStore = {.directory = {}, .file = m_bundle}});
    EXPECT_FALSE(network.fetch(request()).result().hasResponse);
    write(m_bundle, contentOf(m_site.authorityFile()));
    EXPECT_TRUE(network.fetch(request()).result().hasResponse);
    write(m_bundle, m_othersPem);
    EXPECT_FALSE(network.fetch(request()).result().hasResponse);
}

TEST_F(TrustedFetchTest, AFileAndADirectoryAreBothUsed)
{
    const QByteArray others = m_other.authorityFile();
    EXPECT_TRUE(fetch({.directory = m_site.authorityDirectory(), .file = others}).hasResponse);
    EXPECT_TRUE(fetch({.directory = m_other.authorityDirectory(), .file = m_site.authorityFile()})
                    .hasResponse);
    EXPECT_FALSE(fetch({.directory = m_other.authorityDirectory(), .file = others}).hasResponse);
}

TEST_F(TrustedFetchTest, WithoutCertificatesNothingIsTrustedButTheDateIsReported)
{
    write(m_bundle, {});
    for (const TrustStore &trustStore :
         {TrustStore{}, TrustStore{.directory = {}, .file = m_bundle},
          TrustStore{.directory = path(u"nowhere"_s), .file = path(u"no"_s)}}) {
        m_dates->dates.clear();
        const HttpResult result = fetch(trustStore);
        EXPECT_FALSE(result.hasResponse);
        EXPECT_THAT(result.error.toStdString(),
                    HasSubstr("unable to get local issuer certificate"));
        EXPECT_FALSE(m_dates->dates.empty());
    }
}

TEST_F(TrustedFetchTest, ParsingIsNotCountedInTheElapsedTime)
{
    // So many that parsing them takes many times longer than a fetch.
    write(m_bundle, contentOf(m_site.authorityFile()) + m_othersPem.repeated(3000));
    const auto begin = std::chrono::steady_clock::now();
    const HttpResult result = fetch({.directory = {}, .file = m_bundle});
    const auto whole = std::chrono::steady_clock::now() - begin;
    ASSERT_TRUE(result.hasResponse) << result.error.toStdString();
    EXPECT_LT(result.elapsed, whole / 4);
}

TEST_F(TrustedFetchTest, ARedirectToTlsDoesNotCountTheWaitForTheCertificates)
{
    write(m_bundle, contentOf(m_site.authorityFile()) + m_othersPem.repeated(3000));
    const NginxServer plain(
        {NginxSite{.leaf = {}, .directives = "return 302 " + m_server.url() + ";"}});
    CurlNetwork network({.trustStore = {.directory = {}, .file = m_bundle}});
    const auto begin = std::chrono::steady_clock::now();
    const HttpResult result = network.fetch(requestFor(plain.url())).result();
    const auto whole = std::chrono::steady_clock::now() - begin;
    EXPECT_EQ(result.statusCode, 200) << result.error.toStdString();
    EXPECT_LT(result.elapsed, whole / 4);
}

} // namespace

} // namespace ostrel::test
