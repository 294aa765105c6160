#include "FuzzTarget.h"
#include "PageIcon.h"
#include "PageTitle.h"

#include <QRegularExpression>

#include <array>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

/// The expressions take cubic time.
constexpr qsizetype longestForExpressions = 1024;

QRegularExpression expression(const char *pattern)
{
    return QRegularExpression(QString::fromLatin1(pattern),
                              QRegularExpression::CaseInsensitiveOption);
}

QString titleByExpressions(const QString &page)
{
    static const std::array expressions = {
        expression(
            R"(<meta[^>]*property\s*=\s*["']og:title["'][^>]*content\s*=\s*["']([^"']+)["'])"),
        expression(
            R"(<meta[^>]*content\s*=\s*["']([^"']+)["'][^>]*property\s*=\s*["']og:title["'])"),
        expression(R"(<title[^>]*>([^<]+)</title>)"),
    };
    for (const QRegularExpression &one : expressions) {
        QString title = one.match(page).captured(1).trimmed();
        if (!title.isEmpty())
            return title;
    }
    return {};
}

} // namespace

std::vector<std::string_view> ostrel::fuzz::dictionary()
{
    return {"<link",
            "rel=\"icon\"",
            "rel='shortcut icon'",
            "href='",
            "href = \"",
            "<meta",
            "property='og:title'",
            "content='",
            "<title",
            "</title>",
            "'",
            "\"",
            ">",
            "<",
            "=",
            " ",
            "\n",
            "//cdn.example",
            "/i.png",
            "http",
            "\xc5\xbf",
            "\xe2\x84\xaa",
            "&amp;",
            "\xc2\xa0"};
}

// The linear search finds the same as the plain expressions, and addresses always have a scheme.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    using namespace ostrel;
    const QString page = QString::fromUtf8(reinterpret_cast<const char *>(data), qsizetype(size))
                             .left(longestForExpressions);
    if (pageTitleIn(page).value_or(QString()) != titleByExpressions(page))
        std::abort();
    for (const QString &address : iconAddresses(page, u"example.org"_s)) {
        if (!address.startsWith(u"http"_s))
            std::abort();
    }
    return 0;
}
