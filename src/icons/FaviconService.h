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

/// The icons and titles of the sites that are watched. Main thread only; whatever takes time is
/// done elsewhere. Every failure is no icon or no title, without a message.
///
/// Futures finish through the event loop, or at once where the answer is in memory; they are
/// cancelled only where the service or the network ends first.
class FaviconService : public QObject
{
    Q_OBJECT

public:
    /// How much memory the icons may take, in bytes. The least recently used go first; they are
    /// still on disk. Has room for a thousand icons of 64 by 64 pixels, or 64 of the largest.
    static constexpr qsizetype memoryLimit = qsizetype(16) * 1024 * 1024;

    /// Keeps its files in @p cacheDir, which is made if it is missing, also later. @p network
    /// outlives the service. The thread that pictures are read on calls
    /// @p prepareThread first.
    FaviconService(const QString &cacheDir, Network &network, WorkThread::Work prepareThread = {},
                   QObject *parent = nullptr, SteadyClock now = &std::chrono::steady_clock::now);

    /// The icon of the site at @p address, as shownIcon makes it of what its source served, which
    /// its file holds; a null image where none is found. Comes from memory, else from disk, else
    /// from the network, where lookups of the same domain share one search, which isn't repeated
    /// within FailedSearches::validity after it has failed.
    [[nodiscard]] QFuture<QImage> icon(const QString &address);

    /// The title that the page at @p address, a URL with its scheme, gives itself; as pageTitleIn.
    [[nodiscard]] QFuture<std::optional<QString>> pageTitle(const QString &address);

    /// What icons are kept under: the host that @p address names as a URL, or else what stands
    /// before its first "/", a scheme left aside; without "www.". Nothing where that leaves none.
    [[nodiscard]] static std::optional<QString> domain(const QString &address);

    /// What stands for the site at @p address while it has no icon: the first character of its
    /// host, upper-cased; "?" where it has no host.
    [[nodiscard]] static QString placeholderLetter(const QString &address);

private:
    [[nodiscard]] QFuture<QImage> search(const QString &domain);

    const IconFolder m_cacheDir;
    Network &m_network;
    QCache<QString, QImage> m_memoryCache; ///< By domain; costs are bytes.
    QHash<QString, QFuture<QImage>> m_inFlight;
    FailedSearches m_failed;
    IconWork m_work;
};

} // namespace ostrel
