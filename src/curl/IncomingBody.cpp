#include "IncomingBody.h"

#include "BodyReader.h"
#include "Inbox.h"
#include "WorkThread.h"

#include <algorithm>
#include <utility>

namespace ostrel {

namespace {

/// More than arrives during the other bodies' turns, and little compared with a hundred transfers.
constexpr qsizetype longestQueue = qsizetype(1024) * 1024;
constexpr qsizetype sliceSize = qsizetype(64) * 1024;
/// How much is decoded of a slice before other bodies have their turn, in multiples of the slice's
/// size.
constexpr int decodedPieces = 4;

} // namespace

IncomingBody::IncomingBody(BodyWish wish, std::shared_ptr<WorkQueue> queue,
                           std::shared_ptr<Inbox> inbox)
    : m_wish(std::move(wish))
    , m_queue(std::move(queue))
    , m_inbox(std::move(inbox))
{
}

bool IncomingBody::offer(QByteArrayView bytes)
{
    const std::lock_guard lock(m_mutex);
    if (m_isOver)
        return true;
    m_isFull = m_waitingSize >= longestQueue;
    if (m_isFull)
        return false;
    try {
        appendLocked(bytes);
        postLocked();
    } catch (...) {
        dropLocked();
    }
    return true;
}

bool IncomingBody::hasRoom() const
{
    const std::lock_guard lock(m_mutex);
    return !m_isFull || m_isOver;
}

void IncomingBody::complete()
{
    const std::lock_guard lock(m_mutex);
    m_isComplete = true;
    try {
        postLocked();
    } catch (...) {
        dropLocked();
    }
}

void IncomingBody::giveUp()
{
    const std::lock_guard lock(m_mutex);
    dropLocked();
}

bool IncomingBody::isOver() const
{
    const std::lock_guard lock(m_mutex);
    return m_isOver;
}

IncomingBody::Outcome IncomingBody::takeOutcome()
{
    const std::lock_guard lock(m_mutex);
    return m_isAtWork ? Outcome() : std::move(m_outcome);
}

void IncomingBody::appendLocked(QByteArrayView bytes)
{
    if (m_waiting.empty() || m_waiting.back().size() + bytes.size() > sliceSize)
        m_waiting.emplace_back();
    m_waiting.back().append(bytes);
    m_waitingSize += bytes.size();
}

void IncomingBody::dropLocked()
{
    m_isOver = true;
    m_waiting.clear();
    m_waitingSize = 0;
}

void IncomingBody::postLocked()
{
    if (m_isAtWork || m_isOver)
        return;
    m_queue->post([self = shared_from_this()] { self->work(); });
    m_isAtWork = true;
}

void IncomingBody::work()
{
    settle(workQuietly());
}

IncomingBody::Progress IncomingBody::workQuietly()
{
    try {
        return readSlice();
    } catch (...) {
        return Progress::over;
    }
}

IncomingBody::Progress IncomingBody::readSlice()
{
    if (isOver())
        return Progress::over;
    if (!std::exchange(m_hasBegun, true)) {
        m_decoder = ContentDecoder::make(m_encoding);
        m_decoded.resize(m_decoder ? sliceSize : 0);
        if (m_wish.reader)
            m_wish.reader->begin();
    }
    if (m_input.isEmpty() && !takeInput())
        return Progress::starved;
    if (!m_decoder)
        return consume(std::exchange(m_input, {}));
    Progress progress = Progress::ready;
    for (int i = 0; i < decodedPieces && progress == Progress::ready; ++i)
        progress = decodeSome();
    return progress;
}

/// False if nothing is waiting.
bool IncomingBody::takeInput()
{
    const std::lock_guard lock(m_mutex);
    if (m_waiting.empty())
        return false;
    m_slice = std::move(m_waiting.front());
    m_waiting.pop_front();
    m_waitingSize -= m_slice.size();
    m_input = m_slice;
    return true;
}

IncomingBody::Progress IncomingBody::decodeSome()
{
    const auto [count, state] = m_decoder->decode(m_input, m_decoded);
    const Progress progress = consume({m_decoded.data(), static_cast<qsizetype>(count)});
    if (progress == Progress::over || state == ContentDecoder::State::damaged)
        return Progress::over;
    return state == ContentDecoder::State::starved ? Progress::starved : Progress::ready;
}

IncomingBody::Progress IncomingBody::consume(QByteArrayView bytes)
{
    if (m_wish.reader && !bytes.isEmpty())
        m_wish.reader->read(bytes);
    const qsizetype kept = std::min(m_wish.limit - m_outcome.kept.size(), bytes.size());
    m_outcome.kept.append(bytes.first(kept));
    m_isCut = m_isCut || kept < bytes.size();
    return m_isCut && !m_wish.reader ? Progress::over : Progress::ready;
}

void IncomingBody::settle(Progress progress)
{
    bool isNews = false;
    {
        const std::lock_guard lock(m_mutex);
        m_isAtWork = false;
        goOnLocked(progress);
        const bool hasRoomAgain = m_isFull && m_waitingSize <= longestQueue / 2;
        m_isFull = m_isFull && !hasRoomAgain;
        isNews = m_isOver || hasRoomAgain;
    }
    if (isNews)
        m_inbox->wake();
}

void IncomingBody::goOnLocked(Progress progress)
{
    if (progress == Progress::starved && m_waiting.empty()) {
        if (m_isComplete && !m_isOver)
            concludeLocked();
        return;
    }
    try {
        if (progress == Progress::over)
            dropLocked();
        else
            postLocked();
    } catch (...) {
        dropLocked();
    }
}

void IncomingBody::concludeLocked()
{
    m_outcome.isWhole = !m_decoder || m_decoder->isComplete();
    m_outcome.isTruncated = m_isCut || !m_outcome.isWhole;
    dropLocked();
}

} // namespace ostrel
