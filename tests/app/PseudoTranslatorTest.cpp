#include "PseudoTranslator.h"

#include "Printers.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

QString pseudo(const char *source)
{
    return PseudoTranslator().translate("Context", source, nullptr, -1);
}

} // namespace

TEST(PseudoTranslatorTest, MarksAccentsAndLengthens)
{
    EXPECT_EQ(pseudo("Recent Checks"), u"⟦Rëçëñt Chëçks····⟧"_s);
    EXPECT_EQ(pseudo("Up"), u"⟦Ûp⟧"_s);
}

TEST(PseudoTranslatorTest, KeepsPlaceholders)
{
    EXPECT_EQ(pseudo("%n in %1"), u"⟦%n ïñ %1··⟧"_s);
}

TEST(PseudoTranslatorTest, EveryTextIsAtLeastTwoFifthsLonger)
{
    for (const char *text : {"a", "Down", "Add Monitor", "CHECK FOR KEYWORD (OPTIONAL)"}) {
        const auto length = qstrlen(text);
        EXPECT_GE(pseudo(text).size() * 5, static_cast<qsizetype>(length) * 7) << text;
    }
}

} // namespace ostrel::test
