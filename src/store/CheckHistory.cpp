#include "CheckHistory.h"

#include "CheckJson.h"
#include "UuidText.h"

#include <algorithm>
#include <bit>
#include <iterator>

namespace ostrel {

namespace {

/// Large enough for few pieces in a save, small enough to leave little room unused at both ends of
/// a history.
constexpr std::size_t chunkSize = 4096;

/// How many dropped checks are removed at once. A history of 2000 that never has more than that
/// before them stays within the 2048 that doubling has given it.
constexpr std::size_t removedAtOnce = 48;

/// Removes the first @p count elements, and gives back what a far longer list has needed.
template<typename Element>
void removeFirst(std::vector<Element> &list, std::size_t count)
{
    list.erase(list.begin(), list.begin() + static_cast<std::ptrdiff_t>(count));
    const std::size_t room = std::bit_ceil(list.size());
    if (list.capacity() <= room)
        return;
    std::vector<Element> smaller;
    smaller.reserve(room);
    std::ranges::move(list, std::back_inserter(smaller));
    list.swap(smaller);
}

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
    m_checks.push_back(std::move(check));
    m_storedLengths.push_back(static_cast<quint32>(stored.size()));
    appendText(",");
    appendText(stored);
}

void CheckHistory::keepNewest(std::size_t count)
{
    while (checks().size() > count)
        dropOldest();
    if (m_dropped >= removedAtOnce)
        removeDropped();
}

void CheckHistory::appendStoredForm(std::vector<std::string_view> &pieces) const
{
    pieces.emplace_back(m_opening);
    // Not the comma before the first check, which may be all that its chunk still holds.
    std::size_t passedOver = m_droppedText + 1;
    for (const std::string &chunk : m_chunks) {
        pieces.push_back(std::string_view(chunk).substr(passedOver));
        passedOver = 0;
    }
    pieces.emplace_back("]");
}

void CheckHistory::appendText(std::string_view text)
{
    while (!text.empty()) {
        if (m_chunks.empty() || m_chunks.back().size() == chunkSize)
            m_chunks.emplace_back().reserve(chunkSize);
        std::string &chunk = m_chunks.back();
        const auto part = text.substr(0, chunkSize - chunk.size());
        chunk += part;
        text.remove_prefix(part.size());
    }
}

void CheckHistory::dropOldest()
{
    dropText(1 + m_storedLengths[m_dropped]);
    ++m_dropped;
}

void CheckHistory::dropText(std::size_t length)
{
    m_droppedText += length;
    while (!m_chunks.empty() && m_droppedText >= m_chunks.front().size()) {
        m_droppedText -= m_chunks.front().size();
        m_chunks.pop_front();
    }
}

void CheckHistory::removeDropped()
{
    removeFirst(m_checks, m_dropped);
    removeFirst(m_storedLengths, m_dropped);
    m_dropped = 0;
}

} // namespace ostrel
