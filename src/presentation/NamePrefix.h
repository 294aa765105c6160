#pragma once

#include <QLocale>
#include <QStringView>

#include <unicode/tblcoll.h>

#include <memory>
#include <vector>

namespace ostrel {

/// The beginning of a name, as a user types it to find the name in a list.
///
/// Letters are equal if the locale's collation says so at its primary strength: neither case nor
/// accents differ, unless the locale sorts the accented letter as a letter of its own. Only as
/// much of a name is read as the prefix is long.
class NamePrefix
{
public:
    explicit NamePrefix(QStringView prefix, const QLocale &locale = QLocale().collation());

    /// False for every name if the prefix has nothing that counts, such as an accent alone.
    [[nodiscard]] bool begins(QStringView name) const;

private:
    std::unique_ptr<icu::RuleBasedCollator> m_collator; ///< Null if ICU has none.
    std::vector<int32_t> m_weights;
};

} // namespace ostrel
