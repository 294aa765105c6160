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

/// Who wants a body, and how much of it.
struct BodyWish
{
    std::shared_ptr<BodyReader> reader; ///< May be null.
    qsizetype limit = 0;                ///< How much to keep, in bytes after decoding.
};

/// One response's body on its way from the I/O thread, which only hands the bytes over, to a thread
/// that decodes, reads and keeps them. That takes them in slices, by turns with other bodies, so
/// that none holds up another however much it decodes to.
///
/// The functions are the I/O thread's; none of them throws, or waits for the other thread. What it
/// needs it has a share in, since it may outlive the network.
class IncomingBody : public std::enable_shared_from_this<IncomingBody>
{
public:
    struct Outcome
    {
        QByteArray kept;
        bool isTruncated = true;
        bool isWhole = false; ///< All of it was decoded, and read if somebody wanted that.
    };

    IncomingBody(BodyWish wish, std::shared_ptr<WorkQueue> queue, std::shared_ptr<Inbox> inbox);

    /// What the response's header says; before the first bytes.
    void setEncoding(QByteArray contentEncoding) { m_encoding = std::move(contentEncoding); }
    /// Takes the next bytes. False if too many are waiting already; the I/O thread is woken when
    /// there is room again.
    [[nodiscard]] bool offer(QByteArrayView bytes);
    [[nodiscard]] bool hasRoom() const;
    /// No more bytes come. The I/O thread is woken when the last is read.
    void complete();
    /// What still waits, or comes, is dropped.
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

    // For both threads.
    mutable std::mutex m_mutex;
    std::deque<QByteArray> m_waiting;
    qsizetype m_waitingSize = 0;
    bool m_isFull = false;
    bool m_isComplete = false;
    bool m_isAtWork = false;
    bool m_isOver = false;

    // Of the reading thread, and of the other once it's over.
    const BodyWish m_wish;
    QByteArray m_encoding; ///< Set before the first work is posted.
    bool m_hasBegun = false;
    QByteArray m_slice;
    QByteArrayView m_input; ///< What is left of the slice.
    std::unique_ptr<ContentDecoder> m_decoder;
    std::vector<char> m_decoded;
    bool m_isCut = false; ///< More came than is kept.
    Outcome m_outcome;

    const std::shared_ptr<WorkQueue> m_queue;
    const std::shared_ptr<Inbox> m_inbox;
};

} // namespace ostrel
