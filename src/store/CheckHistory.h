#pragma once

#include "Check.h"
#include "CheckJson.h"

#include <QUuid>

#include <deque>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace ostrel {

/// The history of one monitor, oldest first, and which part of it the file holds. A check never
/// changes, so its stored form is encoded once and from then on copied from the file's last content
/// to the next. No stored form is kept in memory.
class CheckHistory
{
public:
    explicit CheckHistory(const QUuid &monitorId);

    /// Valid until the history changes.
    [[nodiscard]] std::span<const Check> checks() const;

    void append(const Check &check);
    /// Like append(), for a check that the file holds at @p stored. It counts as stored only if all
    /// before it do and it follows them after one comma.
    void append(Check &&check, TextRange stored);
    /// Drops the oldest checks, so that at most @p count remain.
    void keepNewest(std::size_t count);

    /// What precedes the first check in the file: the id and the array's bracket.
    [[nodiscard]] std::string_view opening() const;
    /// The range of the file that holds the oldest checks, with commas between them.
    [[nodiscard]] TextRange storedText() const;
    /// The checks after those, which the file doesn't hold.
    [[nodiscard]] std::span<const Check> unstoredChecks() const;

    /// Records that the file now holds all checks from @p offset on: those that it held, and the
    /// others, whose lengths are @p newLengths.
    void setStored(quint64 offset, std::span<const quint32> newLengths);
    /// Records that the file no longer holds any of them.
    void forgetStored();

private:
    void addStored(quint32 length);
    void dropOldest();
    void removeDropped();

    std::string m_opening;

    // The first m_dropped checks have been dropped already; they are removed many at a time.
    std::vector<Check> m_checks;
    std::size_t m_dropped = 0;

    TextRange m_storedText;
    std::deque<quint32> m_storedLengths; ///< Of each check in m_storedText.
};

using CheckHistories = std::map<QUuid, CheckHistory>; ///< Keyed by the monitor's id.

} // namespace ostrel
