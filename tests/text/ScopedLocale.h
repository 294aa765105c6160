#pragma once

#include <unicode/locid.h>

namespace ostrel::test {

/// Sets the user's locale while it lives.
class ScopedLocale
{
public:
    explicit ScopedLocale(const char *name) { use(icu::Locale(name)); }
    ~ScopedLocale() { use(m_before); }
    ScopedLocale(const ScopedLocale &) = delete;
    ScopedLocale &operator=(const ScopedLocale &) = delete;

private:
    static void use(const icu::Locale &locale)
    {
        UErrorCode status = U_ZERO_ERROR;
        icu::Locale::setDefault(locale, status);
    }
    const icu::Locale m_before = icu::Locale::getDefault();
};

} // namespace ostrel::test
