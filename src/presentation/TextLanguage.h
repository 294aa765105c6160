#pragma once

#include <QLocale>

namespace ostrel {

/// The language that the texts are in: English unless they are translated. Whatever is made into
/// words or capitals follows it; clock times and numbers follow the user's region, QLocale().
[[nodiscard]] QLocale textLanguage();

} // namespace ostrel
