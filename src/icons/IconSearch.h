#pragma once

#include "IconFolder.h"
#include "IconSources.h"

#include <QFuture>
#include <QImage>
#include <QList>
#include <QObject>
#include <QPromise>

namespace ostrel {

class IconWork;
class Network;
struct HttpRequest;

/// Searches for the icon of one domain, once: on disk, then in one source after the other, each
/// tried only after the previous one has failed. The picture from a source is kept on disk. Main
/// thread, which waits neither for the network, nor for the disk, nor for pictures to be decoded.
class IconSearch : public QObject
{
    Q_OBJECT

public:
    /// @p network and @p work must outlive the search.
    IconSearch(QString domain, IconFolder folder, Network &network, IconWork &work,
               QObject *parent = nullptr);

    /// Starts the search. The future finishes, through the event loop, with the icon as shownIcon()
    /// makes it, or a null image; it is cancelled if the search is destroyed before its end.
    [[nodiscard]] QFuture<QImage> start();

Q_SIGNALS:
    /// Emitted just before the future finishes.
    void finished(const QImage &icon);

private:
    void readFolder();
    void fetchHomePage();
    void tryNextSource();
    void fetchPicture(const HttpRequest &request);
    void keep(const QImage &picture);
    void finish(const QImage &icon);

    const QString m_domain;
    const IconFolder m_folder;
    Network &m_network;
    IconWork &m_work;
    QList<IconSource> m_sources; ///< Still to be tried.
    QPromise<QImage> m_promise;
};

} // namespace ostrel
