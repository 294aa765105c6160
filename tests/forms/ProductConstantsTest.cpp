#include "ProductConstants.h"

#include "FormValidation.h"
#include "Printers.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace ostrel::test {

TEST(ProductConstantsTest, TheSupportAddressOpensAMessageToAMailbox)
{
    const QUrl address = supportAddress();
    EXPECT_TRUE(address.isValid());
    EXPECT_EQ(address.scheme(), u"mailto"_s);
    EXPECT_EQ(address.path().count(u'@'), 1);
}

TEST(ProductConstantsTest, TheExamplesAreAcceptedByTheFields)
{
    EXPECT_TRUE(exampleWebsite().startsWith(u"https://"_s));
    EXPECT_TRUE(isValidWebsite(exampleWebsite()));
    EXPECT_TRUE(isValidHostAndPort(exampleDatabaseHost(), u"5432"_s));
}

} // namespace ostrel::test
