#include "UuidText.h"

#include "Printers.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace ostrel {
namespace {

std::string formatted(const QUuid &id)
{
    const auto text = formatUuid(id);
    return {text.data(), text.size()};
}

TEST(UuidTextTest, IsWrittenInUpperCaseWithoutBraces)
{
    const QUuid id(u"{01234567-89ab-cdef-0123-456789abcdef}"_s);
    EXPECT_EQ(formatted(id), "01234567-89AB-CDEF-0123-456789ABCDEF");
}

TEST(UuidTextTest, IsReadInEitherCase)
{
    const QUuid id(u"{01234567-89ab-cdef-0123-456789abcdef}"_s);
    EXPECT_EQ(parseUuid("01234567-89AB-CDEF-0123-456789ABCDEF"), id);
    EXPECT_EQ(parseUuid("01234567-89ab-cdef-0123-456789ABcdef"), id);
}

TEST(UuidTextTest, WrittenUuidsAreReadBack)
{
    for (int i = 0; i < 1000; ++i) {
        const QUuid id = QUuid::createUuid();
        EXPECT_EQ(parseUuid(formatted(id)), id);
    }
}

TEST(UuidTextTest, OtherFormsAreRefused)
{
    for (const char *text :
         {"", "{01234567-89AB-CDEF-0123-456789ABCDEF}", "0123456789ABCDEF0123456789ABCDEF",
          "01234567-89AB-CDEF-0123-456789ABCDE", "01234567-89AB-CDEF-0123-456789ABCDEFF",
          "01234567-89AB-CDEF-0123-456789ABCDEG", "G1234567-89AB-CDEF-0123-456789ABCDEF",
          "01234567_89AB_CDEF_0123_456789ABCDEF", "0123456-789AB-CDEF-0123-456789ABCDEF",
          "01234567-89AB-CDEF-0123-456789ABCDE ", "01234567-89AB-CDEF-0123-45678-ABCDEF"})
        EXPECT_FALSE(parseUuid(text)) << text;
}

} // namespace
} // namespace ostrel
