#pragma once

#include "FailedSearches.h"
#include "IconFolder.h"
#include "IconWork.h"

#include <QCache>
#include <QFuture>
#include <QHash>
#include <QImage>
#include <QObject>

#include <optional>

namespace ostrel {

class Network;

/// The icons and titles of the watched sites. Main thread only; slow work runs on other threads.
/// Every failure gives no icon or no title, without a message.
///
/// Futures finish through the event loop, or at once if the result is in memory; they are cancelled
/// only if the service or the network is destroyed first.
class FaviconService : public QObject
{
    Q_OBJECT

public:
    /// Upper bound for the memory of the icons, in bytes. The least recently used are evicted
    /// first; they are still on disk. Has room for a thousand icons of 64 by 64 pixels, or 64 of
    /// the largest.
    static constexpr qsizetype memoryLimit = qsizetype(16) * 1024 * 1024;

    /// Keeps its files in @p cacheDir, which is created whenever it is missing. @p network must
    /// outlive the service. The thread that decodes pictures calls @p prepareThread first.
    FaviconService(const QString &cacheDir, Network &network, WorkThread::Work prepareThread = {},
                   QObject *parent = nullptr, SteadyClock now = &std::chrono::steady_clock::now);

    /// The icon of the site at @p address, as shownIcon() makes it from the source's picture, which
    /// is kept in its file; a null image if none is found. Comes from memory, else from disk, else
    /// from the network, where look-ups of the same domain share one search. A search that failed
    /// isn't repeated within FailedSearches::validity.
    [[nodiscard]] QFuture<QImage> icon(const QString &address);

    /// The title of the page at @p address, a URL with its scheme, as found by pageTitleIn().
    [[nodiscard]] QFuture<std::optional<QString>> pageTitle(const QString &address);

    /// The key of a site's icon: the host of @p address as a URL, or else what precedes its first
    /// "/", without a scheme; without "www.". Nullopt if nothing is left.
    [[nodiscard]] static std::optional<QString> domain(const QString &address);

    /// The placeholder for the site at @p address while it has no icon: the first character of its
    /// host, upper-cased; "?" if it has no host.
    [[nodiscard]] static QString placeholderLetter(const QString &address);

private:
    [[nodiscard]] QFuture<QImage> search(const QString &domain);

    const IconFolder m_cacheDir;
    Network &m_network;
    QCache<QString, QImage> m_memoryCache; ///< Keyed by domain; costs are bytes.
    QHash<QString, QFuture<QImage>> m_inFlight;
    FailedSearches m_failed;
    IconWork m_work;
};

} // namespace ostrel
