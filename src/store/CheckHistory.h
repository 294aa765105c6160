#pragma once

#include "Check.h"

#include <QUuid>

#include <deque>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace ostrel {

/// The history of one monitor, oldest first, with the stored form of every check, which is made
/// once and kept: saving a history is gathering its text, not encoding it.
class CheckHistory
{
public:
    explicit CheckHistory(const QUuid &monitorId);

    /// Valid until the history changes.
    [[nodiscard]] std::span<const Check> checks() const;

    void append(const Check &check);
    /// As append(), of a check whose stored form is known.
    void append(Check &&check, std::string_view stored);
    /// Drops the oldest checks, so that at most @p count remain.
    void keepNewest(std::size_t count);

    /// Appends the history's stored form to @p pieces: its id and the array of its checks. The
    /// pieces are valid until the history changes.
    void appendStoredForm(std::vector<std::string_view> &pieces) const;

private:
    void makeRoomForCheck();
    std::string &chunkWithRoom(std::size_t length);
    void dropOldest();
    void forgetDropped();

    std::string m_opening; ///< What comes before the first check in the file.

    // The first m_dropped of both have been dropped already, and are removed many at a time.
    std::vector<Check> m_checks;
    std::vector<quint32> m_storedLengths;
    std::size_t m_dropped = 0;

    std::deque<std::string> m_chunks; ///< The stored forms, each after a comma.
    std::size_t m_droppedText = 0;    ///< Bytes of the first chunk.
};

} // namespace ostrel
