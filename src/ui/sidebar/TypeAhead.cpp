#include "TypeAhead.h"

#include "NamePrefix.h"

#include <algorithm>

namespace ostrel {

namespace {

/// The first row that begins with @p prefix, from @p start on and around; -1 if there is none.
int find(const NamePrefix &prefix, const MonitorListModel &monitors, int start)
{
    const int count = monitors.rowCount();
    for (int step = 0; step < count; ++step) {
        const int row = (start + step) % count;
        const QString name =
            monitors.data(monitors.index(row), MonitorListModel::nameRole).toString();
        if (prefix.begins(name))
            return row;
    }
    return -1;
}

} // namespace

bool TypeAhead::takes(const QString &text) const
{
    const auto characters = text.toUcs4();
    const bool isPrintable = std::ranges::all_of(
        characters, [](char32_t character) { return QChar::isPrint(character); });
    return !text.isEmpty() && isPrintable && (isTyping() || !text.front().isSpace());
}

int TypeAhead::type(const QString &text, const MonitorListModel *monitors, int row)
{
    append(text);
    const NamePrefix prefix(m_isRepeating ? m_letter : m_typed);
    const int start = m_isRepeating ? row + 1 : std::max(row, 0);
    const int found = find(prefix, *monitors, start);
    return found < 0 ? row : found;
}

bool TypeAhead::isTyping() const
{
    return !m_end.hasExpired();
}

void TypeAhead::append(const QString &text)
{
    if (isTyping()) {
        m_isRepeating = m_isRepeating && text == m_letter;
        m_typed += text;
    } else {
        m_isRepeating = true;
        m_typed = text;
        m_letter = text;
    }
    m_end.setRemainingTime(pause);
}

} // namespace ostrel
