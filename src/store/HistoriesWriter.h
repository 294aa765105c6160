#pragma once

#include "CheckHistory.h"
#include "ContentWriter.h"

namespace ostrel {

/// One save of all histories, and what it has put where.
class HistoriesWriter
{
public:
    /// Appends @p histories' stored form to @p content: an array that alternates a monitor's id and
    /// the array of its checks. Copies from @p old, the file's content so far, what that holds.
    /// False where that can't be read, or is no longer what it was.
    [[nodiscard]] bool write(const CheckHistories &histories, const FileSnapshot &old,
                             ContentWriter &content);

    /// Tells @p histories, the same ones and unchanged, that the file now holds them as written.
    void tell(CheckHistories &histories) const;

private:
    /// Where one history's checks were put, and how many of them are new.
    struct Placed
    {
        quint64 offset;
        std::size_t newChecks;
    };

    void appendUnstored(const CheckHistory &history, ContentWriter &content);

    std::vector<Placed> m_placed;
    std::vector<quint32> m_newLengths; ///< Of all histories, one after the other.
    std::string m_text;
};

} // namespace ostrel
