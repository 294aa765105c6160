#pragma once

#include "CheckHistory.h"
#include "ContentWriter.h"

namespace ostrel {

/// One save of all histories, which records where it has put their checks.
class HistoriesWriter
{
public:
    /// Appends @p histories' stored form to @p content: an array that alternates a monitor's id and
    /// the array of its checks. Copies what @p old, the file's content so far, already holds. False
    /// if @p old can't be read or has changed.
    [[nodiscard]] bool write(const CheckHistories &histories, const FileSnapshot &old,
                             ContentWriter &content);

    /// Marks @p histories, which must be the ones that were written and unchanged, as stored where
    /// they were written.
    void tell(CheckHistories &histories) const;

private:
    /// The position of one history's checks, and how many of them are new.
    struct Placed
    {
        quint64 offset;
        std::size_t newChecks;
    };

    void appendUnstored(const CheckHistory &history, ContentWriter &content);

    std::vector<Placed> m_placed;
    std::vector<quint32> m_newLengths; ///< Of all histories, in order.
    std::string m_text;
};

} // namespace ostrel
