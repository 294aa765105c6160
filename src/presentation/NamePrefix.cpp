#include "NamePrefix.h"

#include "IcuLocale.h"

#include <unicode/coleitr.h>

#include <algorithm>

namespace ostrel {

namespace {

using icu::CollationElementIterator;

/// The primary weights of a text, in turn.
class Weights
{
public:
    Weights(const icu::RuleBasedCollator &collator, QStringView text)
        // A copy, for the iterator refers to it.
        : m_text(text.utf16(), static_cast<int32_t>(text.size()))
        , m_elements(collator.createCollationElementIterator(m_text))
    {
    }

    /// CollationElementIterator::NULLORDER after the last.
    [[nodiscard]] int32_t next()
    {
        int32_t element = CollationElementIterator::NULLORDER;
        do {
            element = m_elements->next(m_status);
        } while (U_SUCCESS(m_status) && element != CollationElementIterator::NULLORDER &&
                 CollationElementIterator::primaryOrder(element) == 0);
        if (U_FAILURE(m_status) || element == CollationElementIterator::NULLORDER)
            return CollationElementIterator::NULLORDER;
        return CollationElementIterator::primaryOrder(element);
    }

private:
    icu::UnicodeString m_text;
    std::unique_ptr<CollationElementIterator> m_elements;
    UErrorCode m_status = U_ZERO_ERROR;
};

std::unique_ptr<icu::RuleBasedCollator> collatorOf(const QLocale &locale)
{
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::Collator> made(icu::Collator::createInstance(icuLocale(locale), status));
    auto *collator = dynamic_cast<icu::RuleBasedCollator *>(made.get());
    if (U_FAILURE(status) || !collator)
        return nullptr;
    static_cast<void>(made.release());
    return std::unique_ptr<icu::RuleBasedCollator>(collator);
}

} // namespace

NamePrefix::NamePrefix(QStringView prefix, const QLocale &locale)
    : m_collator(collatorOf(locale))
{
    if (!m_collator)
        return;
    Weights weights(*m_collator, prefix);
    for (int32_t weight = weights.next(); weight != CollationElementIterator::NULLORDER;
         weight = weights.next())
        m_weights.push_back(weight);
}

bool NamePrefix::begins(QStringView name) const
{
    if (m_weights.empty())
        return false;
    Weights weights(*m_collator, name);
    return std::ranges::all_of(m_weights, [&](int32_t weight) { return weights.next() == weight; });
}

} // namespace ostrel
