#include "KeywordSearch.h"

#include "KeywordScan.h"

#include <QStringDecoder>

#include <unicode/locid.h>

#include <string_view>

namespace ostrel {

namespace {

/// ICU is done with a shorter text before the scan has made itself ready.
constexpr qsizetype shortestScan = 100'000;

/// The user's locale, with the tailoring that is made for searching. The POSIX locale's own order
/// takes "A" and "a" for different letters, so the root order stands in for it.
icu::Locale searchLocale()
{
    icu::Locale locale = icu::Locale::getDefault();
    if (std::string_view(locale.getVariant()) == "POSIX")
        locale = icu::Locale::getRoot();
    UErrorCode status = U_ZERO_ERROR;
    locale.setKeywordValue("collation", "search", status);
    return locale;
}

std::u16string_view viewOf(const QString &text)
{
    return {reinterpret_cast<const char16_t *>(text.utf16()), std::size_t(text.size())};
}

} // namespace

IcuCollator makeSearchCollator()
{
    UErrorCode status = U_ZERO_ERROR;
    IcuCollator collator(ucol_open(searchLocale().getName(), &status));
    if (U_FAILURE(status))
        return nullptr;
    ucol_setStrength(collator.get(), UCOL_SECONDARY);
    ucol_setAttribute(collator.get(), UCOL_NORMALIZATION_MODE, UCOL_ON, &status);
    return collator;
}

bool containsKeyword(const QString &text, const QString &keyword)
{
    std::optional<bool> isFound;
    if (const IcuCollator collator = makeSearchCollator()) {
        if (text.size() >= shortestScan)
            isFound = KeywordScan(collator.get(), viewOf(keyword)).isFoundIn(viewOf(text));
        if (!isFound)
            isFound = IcuSearch(collator.get(), viewOf(keyword)).isFoundIn(viewOf(text));
    }
    // A keyword of nothing but characters that have no weight.
    return isFound ? *isFound : text.contains(keyword, Qt::CaseInsensitive);
}

std::optional<QString> decodeBody(const QByteArray &body, BodyExtent extent)
{
    const auto flags = extent == BodyExtent::truncated ? QStringConverter::Flag::Default
                                                       : QStringConverter::Flag::Stateless;
    QStringDecoder decoder(QStringDecoder::Utf8, flags);
    QString text = decoder.decode(body);
    if (decoder.hasError())
        return std::nullopt;
    return text;
}

} // namespace ostrel
