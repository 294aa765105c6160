#include "ClipboardSuggestion.h"

#include "Address.h"
#include "FieldText.h"

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

bool hasWebScheme(const QString &text)
{
    return text.startsWith(u"http://"_s) || text.startsWith(u"https://"_s);
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
