#include "FolderText.h"

#include "Printers.h"

#include <gtest/gtest.h>

#include <string>

namespace ostrel::test {

namespace {

struct Case
{
    const char *name;
    const char16_t *path;
    const char16_t *home;
    const char16_t *text;
};

class FolderTextTest : public testing::TestWithParam<Case>
{
};

} // namespace

TEST_P(FolderTextTest, AbbreviatesTheHomeFolder)
{
    const Case &c = GetParam();
    EXPECT_EQ(folderText(QString::fromUtf16(c.path), QString::fromUtf16(c.home)),
              QString::fromUtf16(c.text));
}

INSTANTIATE_TEST_SUITE_P(
    Table, FolderTextTest,
    testing::Values(Case{"InsideHome", u"/home/ann/.local/share/Ostrel", u"/home/ann",
                         u"~/.local/share/Ostrel/"},
                    Case{"FinalSlashes", u"/home/ann/Ostrel/", u"/home/ann/", u"~/Ostrel/"},
                    Case{"Home", u"/home/ann", u"/home/ann", u"~/"},
                    Case{"SiblingOfHome", u"/home/anna/Ostrel", u"/home/ann",
                         u"/home/anna/Ostrel/"},
                    Case{"Elsewhere", u"/srv/Ostrel", u"/home/ann", u"/srv/Ostrel/"},
                    Case{"NoHome", u"/srv/Ostrel", u"", u"/srv/Ostrel/"},
                    Case{"HomeIsTheRoot", u"/srv/Ostrel", u"/", u"/srv/Ostrel/"},
                    Case{"Root", u"/", u"/home/ann", u"/"}),
    [](const auto &test) { return std::string(test.param.name); });

} // namespace ostrel::test
