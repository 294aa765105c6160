#include "ProductConstants.h"

#include "FormValidation.h"
#include "Printers.h"

#include <gtest/gtest.h>

namespace ostrel::test {

TEST(ProductConstantsTest, TheSupportAddressOpensAMessageToAMailbox)
{
    const QUrl address = supportAddress();
    EXPECT_TRUE(address.isValid());
    EXPECT_EQ(address.scheme(), QStringLiteral("mailto"));
    EXPECT_EQ(address.path().count(u'@'), 1);
}

TEST(ProductConstantsTest, TheExamplesAreWhatTheFieldsAccept)
{
    EXPECT_TRUE(exampleWebsite().startsWith(QStringLiteral("https://")));
    EXPECT_TRUE(isValidWebsite(exampleWebsite()));
    EXPECT_TRUE(isValidHostAndPort(exampleDatabaseHost(), QStringLiteral("5432")));
}

} // namespace ostrel::test
