#include "IcuLocale.h"

namespace ostrel {

icu::Locale icuLocale(const QLocale &locale)
{
    UErrorCode status = U_ZERO_ERROR;
    const QByteArray tag = locale.bcp47Name().toLatin1();
    icu::Locale named = icu::Locale::forLanguageTag(tag.constData(), status);
    return U_SUCCESS(status) ? named : icu::Locale::getRoot();
}

} // namespace ostrel
