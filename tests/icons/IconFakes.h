#pragma once

#include "OfflineNetwork.h"

#include <QByteArray>
#include <QColor>
#include <QHash>
#include <QImage>
#include <QPromise>
#include <QStringList>

#include <deque>
#include <optional>
#include <vector>

namespace ostrel::test {

/// Stands in for the network: answers requests with what the test has put at their addresses, and
/// other requests with 404. Follows redirects and cuts bodies as CurlNetwork does.
class FakeWeb : public OfflineNetwork
{
public:
    [[nodiscard]] QFuture<HttpResult> fetch(const HttpRequest &request) override;

    void put(const QString &address, const QByteArray &body, int statusCode = 200);
    /// Marks the answers for @p address as coming from a private network.
    void setPrivate(const QString &address);
    void redirect(const QString &from, const QString &to);
    /// Leaves requests for @p address without any response.
    void breakAt(const QString &address);

    /// From now on, requests stay unanswered until releaseNext().
    void hold() { m_isHolding = true; }
    [[nodiscard]] std::size_t heldCount() const { return m_held.size(); }
    void releaseNext();

    /// The requested addresses, in order.
    [[nodiscard]] QStringList addresses() const;
    /// The reach that the first request for @p address was allowed; nothing if there was none.
    [[nodiscard]] std::optional<Reach> reachOf(const QString &address) const;

    std::vector<HttpRequest> requests;

private:
    [[nodiscard]] HttpResult answer(const HttpRequest &request) const;

    QHash<QString, HttpResult> m_answers;
    QHash<QString, QString> m_redirects;
    bool m_isHolding = false;
    std::deque<std::pair<HttpRequest, QPromise<HttpResult>>> m_held;
};

/// A picture of one colour, of the given size, as a file of @p format.
[[nodiscard]] QByteArray picture(const QSize &size, const char *format = "png",
                                 Qt::GlobalColor color = Qt::red);

[[nodiscard]] QColor centerOf(const QImage &image);
/// As red as a file that loses some of its colours keeps it.
[[nodiscard]] bool isReddish(const QColor &color);

/// A GIF of 16 by 16 pixels that takes @p fileSize bytes, 47 or more.
[[nodiscard]] QByteArray smallGif(qsizetype fileSize);

} // namespace ostrel::test
