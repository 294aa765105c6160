#include "Address.h"

namespace ostrel {

std::optional<QUrl> parseAddress(const QString &text)
{
    const QUrl url(text, QUrl::TolerantMode);
    if (url.isEmpty() || !url.isValid())
        return std::nullopt;
    return url;
}

std::optional<QString> hostOf(const QString &text)
{
    const auto url = parseAddress(text);
    if (!url || url->host().isEmpty())
        return std::nullopt;
    return url->host();
}

} // namespace ostrel
