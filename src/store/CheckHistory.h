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

/// The history of one monitor, oldest first, and what the file holds of it: a check never changes,
/// so its stored form is made once and from then on copied from the file's last content to the
/// next. None is kept in memory.
class CheckHistory
{
public:
    explicit CheckHistory(const QUuid &monitorId);

    /// Valid until the history changes.
    [[nodiscard]] std::span<const Check> checks() const;

    void append(const Check &check);
    /// As append(), of a check that the file holds at @p stored. It counts as stored only where all
    /// before it are, and it follows them after one comma.
    void append(Check &&check, TextRange stored);
    /// Drops the oldest checks, so that at most @p count remain.
    void keepNewest(std::size_t count);

    /// What comes before the first check in the file: the id and the array's bracket.
    [[nodiscard]] std::string_view opening() const;
    /// Where the file holds the oldest checks, with commas between them.
    [[nodiscard]] TextRange storedText() const;
    /// The checks after those, which it doesn't hold.
    [[nodiscard]] std::span<const Check> unstoredChecks() const;

    /// From now on the file holds all checks from @p offset on: those that it held, and the others,
    /// of which each is as long as @p newLengths say.
    void setStored(quint64 offset, std::span<const quint32> newLengths);
    /// The file holds none of them any more.
    void forgetStored();

private:
    void addStored(quint32 length);
    void dropOldest();
    void removeDropped();

    std::string m_opening;

    // The first m_dropped have been dropped already, and are removed many at a time.
    std::vector<Check> m_checks;
    std::size_t m_dropped = 0;

    TextRange m_storedText;
    std::deque<quint32> m_storedLengths; ///< Of the checks in it.
};

using CheckHistories = std::map<QUuid, CheckHistory>; ///< By the monitor's id.

} // namespace ostrel
