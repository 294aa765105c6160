#include "CheckHistory.h"

#include "UuidText.h"

#include <algorithm>
#include <bit>
#include <iterator>

namespace ostrel {

namespace {

/// How many dropped checks are removed at once. 2000 checks with at most that many dropped ones
/// before them fit in the capacity of 2048 that doubling reaches.
constexpr std::size_t removedAtOnce = 48;

/// Removes the first @p count elements, and frees the excess capacity of a formerly far longer
/// list.
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
    m_checks.push_back(check);
}

void CheckHistory::append(Check &&check, TextRange stored)
{
    const bool isFirst = m_checks.empty();
    const quint64 expected =
        isFirst ? stored.offset : m_storedText.offset + m_storedText.length + 1;
    if (unstoredChecks().empty() && stored.offset == expected) {
        if (isFirst)
            m_storedText.offset = stored.offset;
        addStored(static_cast<quint32>(stored.length));
    }
    m_checks.push_back(std::move(check));
}

void CheckHistory::keepNewest(std::size_t count)
{
    while (checks().size() > count)
        dropOldest();
    if (m_dropped >= removedAtOnce)
        removeDropped();
}

std::string_view CheckHistory::opening() const
{
    return m_opening;
}

TextRange CheckHistory::storedText() const
{
    return m_storedText;
}

std::span<const Check> CheckHistory::unstoredChecks() const
{
    return checks().subspan(m_storedLengths.size());
}

void CheckHistory::setStored(quint64 offset, std::span<const quint32> newLengths)
{
    m_storedText.offset = offset;
    for (const quint32 length : newLengths)
        addStored(length);
}

void CheckHistory::forgetStored()
{
    m_storedText = {};
    m_storedLengths.clear();
}

void CheckHistory::addStored(quint32 length)
{
    m_storedText.length += (m_storedLengths.empty() ? 0 : 1) + length;
    m_storedLengths.push_back(length);
}

void CheckHistory::dropOldest()
{
    ++m_dropped;
    if (m_storedLengths.empty())
        return;
    // The last one has no comma behind it.
    const auto length = std::min<quint64>(m_storedLengths.front() + 1ULL, m_storedText.length);
    m_storedText.offset += length;
    m_storedText.length -= length;
    m_storedLengths.pop_front();
}

void CheckHistory::removeDropped()
{
    removeFirst(m_checks, m_dropped);
    m_dropped = 0;
}

} // namespace ostrel
