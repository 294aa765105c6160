#include "ClipboardSuggestion.h"

#include "Address.h"
#include "FieldText.h"

namespace ostrel {

namespace {

bool hasWebScheme(const QString &text)
{
    return text.startsWith(QStringLiteral("http://")) ||
           text.startsWith(QStringLiteral("https://"));
}

} // namespace

std::optional<QString> clipboardSuggestion(const QString &text)
{
    const QString address = trimmedField(text);
    if (!hasWebScheme(address) || !hostOf(address))
        return std::nullopt;
    return address;
}

} // namespace ostrel
