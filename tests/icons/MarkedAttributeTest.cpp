#include "MarkedAttribute.h"

#include "Printers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <ctime>
#include <limits>
#include <random>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

constexpr auto caseInsensitive = QRegularExpression::CaseInsensitiveOption;
const QString tag = u"<link"_s;
const QString marker = uR"(rel\s*=\s*["'](?:shortcut )?icon["'])"_s;
const QString value = uR"(href\s*=\s*["'])"_s;
const QString content = uR"(([^"']+)["'])"_s;

const MarkedAttribute iconLink = {QRegularExpression(tag, caseInsensitive),
                                  QRegularExpression(marker, caseInsensitive),
                                  QRegularExpression(value, caseInsensitive)};

/// What the whole regular expression captures.
std::optional<QString> captureOf(const QString &html, AttributeOrder order)
{
    const QString gap = u"[^>]*"_s;
    static const QRegularExpression markerFirst(tag + gap + marker + gap + value + content,
                                                caseInsensitive);
    static const QRegularExpression valueFirst(tag + gap + value + content + gap + marker,
                                               caseInsensitive);
    const auto match =
        (order == AttributeOrder::markerFirst ? markerFirst : valueFirst).match(html);
    return match.hasMatch() ? std::optional(match.captured(1)) : std::nullopt;
}

/// A short page made of only the pieces that matter to the expressions.
QString randomPage(std::mt19937 &random)
{
    static const std::array pieces = {
        u"<link"_s,      u" rel='icon'"_s, u" href='"_s, u"rel=\"shortcut icon\""_s,
        u"href=\"a\""_s, u">"_s,           u"'"_s,       u"\""_s,
        u"b"_s,          u"<LINK "_s,      u"HREF = "_s, u"rel ="_s,
        u"icon'"_s,      u"\n"_s,
    };
    const int count = std::uniform_int_distribution(1, 24)(random);
    QString page;
    for (int i = 0; i < count; ++i)
        page += pieces.at(std::uniform_int_distribution<std::size_t>(0, pieces.size() - 1)(random));
    return page;
}

/// A page that repeats one piece, of @p size characters or a few more.
QString pageOf(const char *piece, qsizetype size)
{
    QString page = u"<link "_s;
    while (page.size() < size)
        page += QLatin1String(piece);
    // So that every part of the expression occurs in the page.
    return page + u"> rel='icon' href='b' rel='icon'"_s;
}

/// The processor time that a search takes, in ticks; the shortest of three.
std::clock_t timeToSearch(const QString &page, AttributeOrder order)
{
    std::clock_t shortest = std::numeric_limits<std::clock_t>::max();
    for (int i = 0; i < 3; ++i) {
        const std::clock_t begin = std::clock();
        static_cast<void>(findMarkedAttribute(page, iconLink, order));
        shortest = std::min(shortest, std::clock() - begin);
    }
    return std::max<std::clock_t>(shortest, 1);
}

} // namespace

TEST(MarkedAttributeTest, FindsWhatTheWholeExpressionCaptures)
{
    std::mt19937 random(20260417);
    std::array<int, 2> found = {};
    for (int i = 0; i < 15000; ++i) {
        const QString page = randomPage(random);
        for (const auto order : {AttributeOrder::markerFirst, AttributeOrder::valueFirst}) {
            const auto expected = captureOf(page, order);
            ASSERT_EQ(findMarkedAttribute(page, iconLink, order), expected)
                << page.toStdString() << " in order " << static_cast<int>(order);
            found.at(static_cast<std::size_t>(order)) += expected ? 1 : 0;
        }
    }
    EXPECT_GT(found[0], 250) << "the pages no longer hold what is looked for";
    EXPECT_GT(found[1], 250) << "the pages no longer hold what is looked for";
}

TEST(MarkedAttributeTest, TakesTimeInProportionToTheLengthOfAnyPage)
{
    constexpr qsizetype pageSize = qsizetype(64) * 1024;
    constexpr qsizetype share = 16;
    for (const char *piece : {"<link", "<link rel='icon' ", "<link href='a' ", "rel='icon' href=",
                              "href='", "<link href=\"a>", "rel", "rel ", "href = "}) {
        for (const auto order : {AttributeOrder::markerFirst, AttributeOrder::valueFirst}) {
            EXPECT_EQ(findMarkedAttribute(pageOf(piece, 100), iconLink, order),
                      captureOf(pageOf(piece, 100), order))
                << piece;
            // With the square of its length, the whole page would take 256 times as long.
            EXPECT_LT(timeToSearch(pageOf(piece, pageSize), order),
                      4 * share * timeToSearch(pageOf(piece, pageSize / share), order))
                << piece;
        }
    }
}

} // namespace ostrel::test
