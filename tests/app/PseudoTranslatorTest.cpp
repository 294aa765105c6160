#include "PseudoTranslator.h"

#include "Printers.h"

#include <gtest/gtest.h>

namespace ostrel::test {

namespace {

QString pseudo(const char *source)
{
    return PseudoTranslator().translate("Context", source, nullptr, -1);
}

} // namespace

TEST(PseudoTranslatorTest, MarksAccentsAndLengthens)
{
    EXPECT_EQ(pseudo("Recent Checks"), QStringLiteral("⟦Rëçëñt Chëçks····⟧"));
    EXPECT_EQ(pseudo("Up"), QStringLiteral("⟦Ûp⟧"));
}

TEST(PseudoTranslatorTest, KeepsWhatStandsForSomethingElse)
{
    EXPECT_EQ(pseudo("%n in %1"), QStringLiteral("⟦%n ïñ %1··⟧"));
}

TEST(PseudoTranslatorTest, EveryTextIsAtLeastTwoFifthsLonger)
{
    for (const char *text : {"a", "Down", "Add Monitor", "CHECK FOR KEYWORD (OPTIONAL)"}) {
        const auto length = qstrlen(text);
        EXPECT_GE(pseudo(text).size() * 5, static_cast<qsizetype>(length) * 7) << text;
    }
}

} // namespace ostrel::test
