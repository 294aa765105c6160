#include "PageIcon.h"

#include "Printers.h"

#include <gtest/gtest.h>

#include <string>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

struct LinkCase
{
    const char *name;
    const char *html;
    QStringList addresses;
};

class PageIconTest : public testing::TestWithParam<LinkCase>
{
};

QString at(const char *address)
{
    return QString::fromLatin1(address);
}

const QString a = at("https://example.org/a.png");
const QString b = at("https://example.org/b.png");

} // namespace

TEST_P(PageIconTest, NamesItsIcons)
{
    EXPECT_EQ(iconAddresses(QString::fromUtf8(GetParam().html), u"example.org"_s),
              GetParam().addresses);
}

INSTANTIATE_TEST_SUITE_P(
    Table, PageIconTest,
    testing::Values(LinkCase{"None", "<html><head></head></html>", {}},
                    LinkCase{"RelFirst", "<link rel=\"icon\" href=\"/a.png\">", {a}},
                    LinkCase{"HrefFirst", "<link href='/a.png' rel='icon'>", {a}},
                    LinkCase{"Shortcut",
                             "<link rel=\"shortcut icon\" type=\"image/png\" href=\"/a.png\"/>",
                             {a}},
                    LinkCase{"BothOrders",
                             "<link href='/b.png' rel='icon'><link rel='icon' href='/a.png'>",
                             {a, b}},
                    LinkCase{"OtherRel", "<link rel='apple-touch-icon' href='/a.png'>", {}},
                    LinkCase{"MaskIcon", "<link rel='mask-icon' href='/a.png'>", {}},
                    LinkCase{"IconAmongOthers", "<link rel='alternate icon' href='/a.png'>", {}},
                    LinkCase{"AnyCase", "<LINK REL='Shortcut Icon' HREF='/a.png'>", {a}},
                    LinkCase{"BlanksAroundEquals", "<link rel = 'icon' href\n=\t'/a.png'>", {a}},
                    LinkCase{"NoQuotes", "<link rel=icon href=/a.png>", {}},
                    LinkCase{"MixedQuotes", "<link rel='icon\" href=\"/a.png'>", {a}},
                    LinkCase{"FirstLinkCounts",
                             "<link rel='icon' href='/a.png'><link rel='icon' href='/b.png'>",
                             {a}},
                    LinkCase{"EarlierLinksOfOtherKindsArePassed",
                             "<link rel='stylesheet' href='/s.css'><link rel='icon' href='/a.png'>",
                             {a}},
                    LinkCase{"NotAcrossTags", "<link rel='icon'><a href='/a.png'>", {}},
                    LinkCase{"EmptyHref", "<link rel='icon' href=''>", {}},
                    LinkCase{"EntitiesAndBlanksStay",
                             "<link rel='icon' href=' a&amp;b '>",
                             {at("https://example.org/ a&amp;b ")}}),
    [](const auto &testCase) { return std::string(testCase.param.name); });

namespace {

struct ResolutionCase
{
    const char *name;
    const char *href;
    const char *address;
};

class IconAddressTest : public testing::TestWithParam<ResolutionCase>
{
};

} // namespace

TEST_P(IconAddressTest, IsResolved)
{
    EXPECT_EQ(resolveIconAddress(at(GetParam().href), u"example.org"_s), at(GetParam().address));
}

INSTANTIATE_TEST_SUITE_P(
    Table, IconAddressTest,
    testing::Values(
        ResolutionCase{"OtherHost", "//cdn.example/i.png", "https://cdn.example/i.png"},
        ResolutionCase{"FromTheRoot", "/img/i.png", "https://example.org/img/i.png"},
        ResolutionCase{"Relative", "img/i.png", "https://example.org/img/i.png"},
        ResolutionCase{"Complete", "https://cdn.example/i.png", "https://cdn.example/i.png"},
        ResolutionCase{"PlainHttp", "http://cdn.example/i.png", "http://cdn.example/i.png"},
        ResolutionCase{"OnlyBeginsLikeHttp", "httpicon.png", "httpicon.png"},
        ResolutionCase{"UpperCase", "HTTPS://x/i.png", "https://example.org/HTTPS://x/i.png"},
        ResolutionCase{"LocalFile", "file:///etc/passwd", "https://example.org/file:///etc/passwd"},
        ResolutionCase{"Data", "data:image/png;base64,AA",
                       "https://example.org/data:image/png;base64,AA"}),
    [](const auto &testCase) { return std::string(testCase.param.name); });

} // namespace ostrel::test
