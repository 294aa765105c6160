#pragma once

#include <QCache>
#include <QString>

#include <chrono>
#include <functional>

namespace ostrel {

using SteadyClock = std::function<std::chrono::steady_clock::time_point()>;

/// The domains for whose icons there was a search in vain a short while ago. In memory alone, so
/// that the next start of the program tries again.
class FailedSearches
{
public:
    /// How long a failure counts.
    static constexpr std::chrono::minutes validity{10};
    /// How much memory they may take, about, in bytes: that of a thousand domains. The least
    /// recently used go first.
    static constexpr qsizetype memoryLimit = qsizetype(256) * 1024;

    explicit FailedSearches(SteadyClock now);

    /// A search for the icon of @p domain has failed just now.
    void add(const QString &domain);
    [[nodiscard]] bool contains(const QString &domain) const;

private:
    SteadyClock m_now;
    QCache<QString, std::chrono::steady_clock::time_point> m_times; ///< By domain; costs are bytes.
};

} // namespace ostrel
