#include "PageTitle.h"

#include "Printers.h"

#include <gtest/gtest.h>

#include <string>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

struct TitleCase
{
    const char *name;
    const char *html;
    const char *title; ///< Null if there is none.
};

class PageTitleTest : public testing::TestWithParam<TitleCase>
{
};

} // namespace

TEST_P(PageTitleTest, IsFound)
{
    const TitleCase &c = GetParam();
    const auto title = pageTitleIn(QString::fromUtf8(c.html));
    ASSERT_EQ(title.has_value(), c.title != nullptr);
    EXPECT_EQ(title.value_or(QString()), QString::fromUtf8(c.title));
}

INSTANTIATE_TEST_SUITE_P(
    Table, PageTitleTest,
    testing::Values(
        TitleCase{"None", "<p>Hello</p>", nullptr},
        TitleCase{"OpenGraphBeforeTitleElement",
                  "<title>Home</title><meta property=\"og:title\" content=\"Shop\">", "Shop"},
        TitleCase{"ContentBeforeProperty", "<meta content='Shop' property='og:title'/>", "Shop"},
        TitleCase{"PropertyFirstIsTriedFirst",
                  "<meta content='B' property='og:title'><meta property='og:title' content='A'>",
                  "A"},
        TitleCase{"BlankOpenGraphIsSkipped",
                  "<meta property='og:title' content=' \n '><title>Home</title>", "Home"},
        TitleCase{"BlankFirstPatternFallsToTheSecond",
                  "<meta property='og:title' content=' '><meta content='B' property='og:title'>",
                  "B"},
        TitleCase{"OtherProperty", "<meta property='og:site_name' content='X'><title>Home</title>",
                  "Home"},
        TitleCase{"Padded", "<title>  \n Home\t </title>", "Home"},
        TitleCase{"PaddedOpenGraph", "<meta property='og:title' content=' Shop '>", "Shop"},
        TitleCase{"EntityStays", "<title>Salt &amp; Pepper</title>", "Salt &amp; Pepper"},
        TitleCase{"InnerBlanksStay", "<title>A  \n B</title>", "A  \n B"},
        TitleCase{"WithAttributes", "<title data-x='1'>Home</title>", "Home"},
        TitleCase{"AnyCase", "<TITLE>Home</TITLE>", "Home"},
        TitleCase{"Blank", "<title> </title>", nullptr},
        TitleCase{"BlankFirstOfTwo", "<title> </title><title>Home</title>", nullptr},
        TitleCase{"EmptyFirstOfTwo", "<title></title><title>Home</title>", "Home"},
        TitleCase{"MarkupInside", "<title>A<b>B</b></title>", nullptr},
        TitleCase{"Unclosed", "<title>Home", nullptr},
        TitleCase{"NoEndOfTag", "<title <title <title", nullptr},
        TitleCase{"TagInTag", "<title <title>Home</title>", "Home"},
        TitleCase{"LongerElementName", "<titles>Home</title>", "Home"},
        TitleCase{"OtherLetters", "<title>Größe 東京 🙂</title>", "Größe 東京 🙂"}),
    [](const auto &testCase) { return std::string(testCase.param.name); });

TEST(HostilePageTest, TitleSearchEndsSoon)
{
    constexpr qsizetype pageSize = qsizetype(2) * 1024 * 1024;
    for (const char *piece : {"<title", "<title>", "<title>a", "<title>a</title", "<meta content='",
                              "<meta property='og:title' ", "<meta content='a' "}) {
        QString page;
        while (page.size() < pageSize)
            page += QLatin1String(piece);
        page += u"</title"_s;
        EXPECT_EQ(pageTitleIn(page), std::nullopt) << piece;
    }
}

} // namespace ostrel::test
