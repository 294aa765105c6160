#pragma once

#include "IconFolder.h"
#include "PlainGet.h"

#include <QFuture>
#include <QImage>
#include <QObject>
#include <QPromise>
#include <QStringList>

namespace ostrel {

/// Looks for the icon of one domain, once: on disk, then in one source after the other, each tried
/// only after the one before has failed. What a source yields is kept on disk. Main thread, which
/// waits neither for the network, nor for the disk, nor for pictures to be decoded.
class IconSearch : public QObject
{
    Q_OBJECT

public:
    IconSearch(QString domain, IconFolder folder, Fetch fetch, QObject *parent = nullptr);

    /// Begins. The future finishes, through the event loop, with the icon or a null image; it is
    /// cancelled where the search is destroyed before its end.
    [[nodiscard]] QFuture<QImage> start();

Q_SIGNALS:
    /// Just before the future finishes.
    void finished(const QImage &icon);

private:
    void readFolder();
    void fetchHomePage();
    void tryNextAddress();
    void fetchPicture(const HttpRequest &request);
    void finish(const QImage &icon);

    const QString m_domain;
    const IconFolder m_folder;
    const Fetch m_fetch;
    QStringList m_addresses; ///< Still to be tried.
    QPromise<QImage> m_promise;
};

} // namespace ostrel
