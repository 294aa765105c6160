#include "FailedSearches.h"

#include <utility>

namespace ostrel {

FailedSearches::FailedSearches(SteadyClock now)
    : m_now(std::move(now))
    , m_times(memoryLimit)
{
}

void FailedSearches::add(const QString &domain)
{
    constexpr qsizetype entrySize = 200; // Beside the text, about.
    const qsizetype size = entrySize + domain.size() * qsizetype(sizeof(QChar));
    m_times.insert(domain, new std::chrono::steady_clock::time_point(m_now()), size);
}

bool FailedSearches::contains(const QString &domain) const
{
    const auto *time = m_times.object(domain);
    return time && m_now() - *time < validity;
}

} // namespace ostrel
