#include "KeywordSearch.h"

#include <QStringDecoder>

#include <unicode/coll.h>
#include <unicode/locid.h>
#include <unicode/stsearch.h>
#include <unicode/tblcoll.h>

#include <memory>
#include <string_view>

namespace ostrel {

namespace {

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

/// Null where ICU's data can't be had.
std::unique_ptr<icu::RuleBasedCollator> makeCollator()
{
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::Collator> collator(icu::Collator::createInstance(searchLocale(), status));
    auto *rules = dynamic_cast<icu::RuleBasedCollator *>(collator.get());
    if (U_FAILURE(status) || !rules)
        return nullptr;
    rules->setStrength(icu::Collator::SECONDARY);
    rules->setAttribute(UCOL_NORMALIZATION_MODE, UCOL_ON, status);
    static_cast<void>(collator.release());
    return std::unique_ptr<icu::RuleBasedCollator>(rules);
}

/// Shares the characters of @p text, which outlives it.
icu::UnicodeString aliasOf(const QString &text)
{
    return {false, reinterpret_cast<const char16_t *>(text.utf16()),
            static_cast<int32_t>(text.size())};
}

} // namespace

bool containsKeyword(const QString &text, const QString &keyword)
{
    const auto collator = makeCollator();
    UErrorCode status = U_ZERO_ERROR;
    if (collator) {
        icu::StringSearch search(aliasOf(keyword), aliasOf(text), collator.get(), nullptr, status);
        const int32_t position = search.first(status);
        if (U_SUCCESS(status))
            return position != USEARCH_DONE;
    }
    // A keyword of nothing but characters that have no weight, which no collation can look for.
    return text.contains(keyword, Qt::CaseInsensitive);
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
