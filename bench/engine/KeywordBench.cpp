// How long it takes to decode a body and to find that the keyword isn't in it, against ICU's search
// over the same text in the same run.

#include "KeywordSearch.h"

#include <unicode/locid.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>

namespace ostrel::bench {

namespace {

using Seconds = std::chrono::duration<double>;

struct Page
{
    const char *name;
    const char *row; ///< All of the page, again and again.
    const char *keyword;
};

constexpr Page pages[] = {
    {"ASCII", "<tr><td class=\"name\">Service</td><td>All systems operational</td></tr>\n",
     "internal server error"},
    {"French",
     "<p>Le caf\u00e9 est ouvert d\u00e8s huit heures \u2013 l\u2019\u00e9quipe attend</p>\n",
     "caf\u00e9 ferm\u00e9"},
    {"Russian",
     "<p>\u0412\u0441\u0435 \u0441\u0438\u0441\u0442\u0435\u043c\u044b "
     "\u0440\u0430\u0431\u043e\u0442\u0430\u044e\u0442</p>\n",
     "\u043d\u0435\u0434\u043e\u0441\u0442\u0443\u043f\u0435\u043d"},
    {"Japanese",
     "<p>\u30b7\u30b9\u30c6\u30e0\u306f\u6b63\u5e38\u306b\u7a3c\u50cd\u3057\u3066"
     "\u3044\u307e\u3059\u3002</p>\n",
     "\u505c\u6b62\u3057\u3066\u3044\u307e\u3059"},
    {"Korean",
     "<p>\ubaa8\ub4e0 \uc2dc\uc2a4\ud15c\uc774 \uc815\uc0c1\uc801\uc73c\ub85c "
     "\uc791\ub3d9\ud569\ub2c8\ub2e4</p>\n",
     "\uc624\ub958"},
    {"emoji, ASCII keyword", "\U0001F7E2 <b>ok</b> \U0001F468\u200d\U0001F469\n", "server error"},
    {"soft hyphens", "in\u00adter\u00adnal ser\u00adver ", "internal server error"},
    {"loose accents", "cafe\u0301 ", "caf\u00e9 ferm\u00e9"},
    {"accents at the ends", "internal server erro\u0301 ", "internal server erro"},
};

QByteArray bodyOf(const Page &page, qsizetype mebibytes)
{
    const QByteArray row(page.row);
    return row.repeated(mebibytes * 1024 * 1024 / row.size());
}

/// The best of some rounds: the others were interrupted.
Seconds best(int rounds, const std::function<void()> &work)
{
    Seconds shortest = std::chrono::hours(1);
    for (int i = 0; i < rounds; ++i) {
        const auto begin = std::chrono::steady_clock::now();
        work();
        shortest = std::min<Seconds>(shortest, std::chrono::steady_clock::now() - begin);
    }
    return shortest;
}

const UChar *charactersOf(const QString &text)
{
    return reinterpret_cast<const UChar *>(text.utf16());
}

void searchBare(const QString &text, const QString &keyword)
{
    const IcuCollator collator = makeSearchCollator();
    UErrorCode status = U_ZERO_ERROR;
    const IcuSearchHandle search(
        usearch_openFromCollator(charactersOf(keyword), int32_t(keyword.size()), charactersOf(text),
                                 int32_t(text.size()), collator.get(), nullptr, &status));
    if (usearch_first(search.get(), &status) != USEARCH_DONE)
        std::printf("found\n");
}

void compare(const Page &page, qsizetype mebibytes, int rounds)
{
    const QByteArray body = bodyOf(page, mebibytes);
    const QString keyword = QString::fromUtf8(page.keyword);
    QString text;
    const auto decoding =
        best(rounds, [&] { text = decodeBody(body, BodyExtent::complete).value(); });
    const auto ours = best(rounds, [&] {
        if (containsKeyword(text, keyword))
            std::printf("found\n");
    });
    const auto bare = best(1, [&] { searchBare(text, keyword); });
    std::printf("%-24s %6lld %10.1f %10.1f %10.1f %8.2f\n", page.name, (long long)mebibytes,
                decoding.count() * 1e3, ours.count() * 1e3, bare.count() * 1e3, ours / bare);
    std::fflush(stdout);
}

void run()
{
    UErrorCode status = U_ZERO_ERROR;
    icu::Locale::setDefault(icu::Locale("en_US"), status);
    std::printf("%-24s %6s %10s %10s %10s %8s\n", "body", "MiB", "decode ms", "search ms", "ICU ms",
                "ratio");
    for (const Page &page : pages) {
        compare(page, 1, 5);
        compare(page, 64, 2);
    }
}

} // namespace

} // namespace ostrel::bench

int main()
{
    ostrel::bench::run();
    return 0;
}
