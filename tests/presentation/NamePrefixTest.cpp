#include "NamePrefix.h"

#include <gtest/gtest.h>

namespace ostrel::test {

namespace {

struct Case
{
    const char *prefix;
    const char *name;
    bool begins;
    const char *locale = "en_US";
};

class NamePrefixTest : public testing::TestWithParam<Case>
{
};

} // namespace

TEST_P(NamePrefixTest, BeginsANameWhoseLettersTheLocaleHoldsEqual)
{
    const Case &given = GetParam();
    const NamePrefix prefix(QString::fromUtf8(given.prefix), QLocale(QLatin1String(given.locale)));
    EXPECT_EQ(prefix.begins(QString::fromUtf8(given.name)), given.begins)
        << given.prefix << " and " << given.name << " in " << given.locale;
}

INSTANTIATE_TEST_SUITE_P(
    Names, NamePrefixTest,
    testing::Values(Case{"s", "Shop", true}, Case{"SHO", "shop", true}, Case{"shop", "Shop", true},
                    Case{"shops", "Shop", false}, Case{"hop", "Shop", false}, Case{"s", "", false},
                    Case{"e", "Éclair", true}, Case{"é", "Echo", true},
                    Case{"e", "E\u0301clair", true}, Case{"my s", "My Shop", true},
                    Case{"my s", "Myshop", false}, Case{"1", "1st", true}, Case{"日", "日本", true},
                    Case{"\u0301", "Shop", false}, Case{"", "Shop", false},
                    Case{"strasse", "Straße", true, "de_DE"}, Case{"a", "Ärzte", true, "de_DE"},
                    Case{"a", "Ärzte", false, "sv_SE"}, Case{"ä", "Ärzte", true, "sv_SE"},
                    Case{"i", "Istanbul", false, "tr_TR"}, Case{"i", "İzmir", true, "tr_TR"}));

} // namespace ostrel::test
