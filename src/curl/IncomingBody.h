#pragma once

#include "ContentDecoder.h"

#include <QByteArray>

#include <deque>
#include <memory>
#include <mutex>
#include <vector>

namespace ostrel {

class BodyReader;
class Inbox;
class WorkQueue;

/// What to do with a body, and how much of it to keep.
struct BodyWish
{
    std::shared_ptr<BodyReader> reader; ///< May be null.
    qsizetype limit = 0;                ///< Upper bound for the kept part, in bytes after decoding.
};

/// Passes one response's body from the I/O thread, which only hands the bytes over, to a thread
/// that decodes, reads and keeps them. That thread handles slices of several bodies in turns, so
/// that none delays another, however much it decodes to.
///
/// The functions are called on the I/O thread; none of them throws, or waits for the other thread.
/// It shares ownership of what it needs, since it may outlive the network.
class IncomingBody : public std::enable_shared_from_this<IncomingBody>
{
public:
    struct Outcome
    {
        QByteArray kept;
        bool isTruncated = true;
        bool isWhole = false; ///< All of it was decoded, and read if there is a reader.
    };

    IncomingBody(BodyWish wish, std::shared_ptr<WorkQueue> queue, std::shared_ptr<Inbox> inbox);

    /// Sets the response header's value; call before the first bytes.
    void setEncoding(QByteArray contentEncoding) { m_encoding = std::move(contentEncoding); }
    /// Takes the next bytes. False if too many are waiting already; the I/O thread is woken when
    /// there is room again.
    [[nodiscard]] bool offer(QByteArrayView bytes);
    [[nodiscard]] bool hasRoom() const;
    /// No more bytes come. The I/O thread is woken when the last have been read.
    void complete();
    /// Drops waiting and further bytes.
    void giveUp();

    /// Whether nothing more will be read.
    [[nodiscard]] bool isOver() const;
    /// Nothing is kept of a body that was given up.
    [[nodiscard]] Outcome takeOutcome();

private:
    enum class Progress { ready, starved, over };

    void appendLocked(QByteArrayView bytes);
    void dropLocked();
    void postLocked();

    void work();
    [[nodiscard]] Progress workQuietly();
    [[nodiscard]] Progress readSlice();
    [[nodiscard]] bool takeInput();
    [[nodiscard]] Progress decodeSome();
    [[nodiscard]] Progress consume(QByteArrayView bytes);
    void settle(Progress progress);
    void goOnLocked(Progress progress);
    void concludeLocked();

    // Shared by both threads.
    mutable std::mutex m_mutex;
    std::deque<QByteArray> m_waiting;
    qsizetype m_waitingSize = 0;
    bool m_isFull = false;
    bool m_isComplete = false;
    bool m_isAtWork = false;
    bool m_isOver = false;

    // Used by the reading thread, and by the I/O thread once it's over.
    const BodyWish m_wish;
    QByteArray m_encoding; ///< Set before the first work is posted.
    bool m_hasBegun = false;
    QByteArray m_slice;
    QByteArrayView m_input; ///< The unread rest of the slice.
    std::unique_ptr<ContentDecoder> m_decoder;
    std::vector<char> m_decoded;
    bool m_isCut = false; ///< More arrived than is kept.
    Outcome m_outcome;

    const std::shared_ptr<WorkQueue> m_queue;
    const std::shared_ptr<Inbox> m_inbox;
};

} // namespace ostrel
