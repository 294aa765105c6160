#include "CheckHistory.h"

#include "CheckJson.h"
#include "UuidText.h"

#include <algorithm>

namespace ostrel {

namespace {

/// Large enough for few pieces in a save, small enough to leave little room unused.
constexpr std::size_t chunkSize = 16384;

/// Checks by which room grows and shrinks: by a fixed number rather than a factor, since there are
/// hundreds of thousands of checks and almost all of them lie in full histories.
constexpr std::size_t roomStep = 64;

} // namespace

CheckHistory::CheckHistory(const QUuid &monitorId)
{
    const auto id = formatUuid(monitorId);
    m_opening += '"';
    m_opening.append(id.data(), id.size());
    m_opening += "\",[";
}

std::span<const Check> CheckHistory::checks() const
{
    return std::span(m_checks).subspan(m_dropped);
}

void CheckHistory::append(const Check &check)
{
    std::string stored;
    appendCheck(stored, check);
    append(Check(check), stored);
}

void CheckHistory::append(Check &&check, std::string_view stored)
{
    makeRoomForCheck();
    std::string &chunk = chunkWithRoom(stored.size() + 1);
    chunk += ',';
    chunk += stored;
    m_checks.push_back(std::move(check));
    m_storedLengths.push_back(static_cast<quint32>(stored.size()));
}

void CheckHistory::keepNewest(std::size_t count)
{
    while (checks().size() > count)
        dropOldest();
    if (m_dropped >= roomStep)
        forgetDropped();
}

void CheckHistory::appendStoredForm(std::vector<std::string_view> &pieces) const
{
    pieces.emplace_back(m_opening);
    const auto first = pieces.size();
    pieces.insert(pieces.end(), m_chunks.begin(), m_chunks.end());
    if (first < pieces.size())
        pieces[first].remove_prefix(m_droppedText + 1); // and the comma before the first check
    pieces.emplace_back("]");
}

void CheckHistory::makeRoomForCheck()
{
    if (m_checks.size() < m_checks.capacity())
        return;
    m_checks.reserve(m_checks.size() + roomStep);
    m_storedLengths.reserve(m_storedLengths.size() + roomStep);
}

std::string &CheckHistory::chunkWithRoom(std::size_t length)
{
    if (m_chunks.empty() || m_chunks.back().size() + length > m_chunks.back().capacity())
        m_chunks.emplace_back().reserve(std::max(chunkSize, length));
    return m_chunks.back();
}

void CheckHistory::dropOldest()
{
    m_droppedText += 1 + m_storedLengths[m_dropped];
    ++m_dropped;
    if (m_droppedText == m_chunks.front().size()) {
        m_chunks.pop_front();
        m_droppedText = 0;
    }
}

void CheckHistory::forgetDropped()
{
    const auto dropped = static_cast<std::ptrdiff_t>(m_dropped);
    m_checks.erase(m_checks.begin(), m_checks.begin() + dropped);
    m_storedLengths.erase(m_storedLengths.begin(), m_storedLengths.begin() + dropped);
    m_dropped = 0;
    if (m_checks.capacity() > m_checks.size() + 4 * roomStep) {
        m_checks.shrink_to_fit();
        m_storedLengths.shrink_to_fit();
    }
}

} // namespace ostrel
