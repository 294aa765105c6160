#include "TrustStore.h"

#include "Printers.h"

#include <gtest/gtest.h>

namespace ostrel::test {

namespace {

class TrustStoreTest : public testing::Test
{
protected:
    TrustStoreTest()
    {
        qunsetenv("SSL_CERT_DIR");
        qunsetenv("SSL_CERT_FILE");
    }
    ~TrustStoreTest() override
    {
        qunsetenv("SSL_CERT_DIR");
        qunsetenv("SSL_CERT_FILE");
    }
};

TEST_F(TrustStoreTest, TheSystemsStoreIsEitherADirectoryOrAFile)
{
    const TrustStore store = TrustStore::system();
    EXPECT_NE(store.directory.isEmpty(), store.file.isEmpty());
}

TEST_F(TrustStoreTest, EnvironmentNamesADirectory)
{
    qputenv("SSL_CERT_DIR", "/somewhere/certificates");
    EXPECT_EQ(TrustStore::system().directory, "/somewhere/certificates");
    EXPECT_EQ(TrustStore::system().file, "");
}

TEST_F(TrustStoreTest, EnvironmentNamesAFile)
{
    qputenv("SSL_CERT_FILE", "/somewhere/bundle.pem");
    EXPECT_EQ(TrustStore::system().directory, "");
    EXPECT_EQ(TrustStore::system().file, "/somewhere/bundle.pem");
}

TEST_F(TrustStoreTest, EnvironmentNamesBoth)
{
    qputenv("SSL_CERT_DIR", "/somewhere/certificates");
    qputenv("SSL_CERT_FILE", "/somewhere/bundle.pem");
    EXPECT_EQ(TrustStore::system().directory, "/somewhere/certificates");
    EXPECT_EQ(TrustStore::system().file, "/somewhere/bundle.pem");
}

TEST_F(TrustStoreTest, EmptyVariablesNameNothing)
{
    const TrustStore usual = TrustStore::system();
    qputenv("SSL_CERT_DIR", "");
    qputenv("SSL_CERT_FILE", "");
    EXPECT_EQ(TrustStore::system().directory, usual.directory);
    EXPECT_EQ(TrustStore::system().file, usual.file);
}

} // namespace

} // namespace ostrel::test
