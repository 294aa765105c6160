#include "HistoriesWriter.h"

namespace ostrel {

bool HistoriesWriter::write(const CheckHistories &histories, const FileSnapshot &old,
                            ContentWriter &content)
{
    bool hasCopied = false;
    content.append("[");
    for (const auto &[id, history] : histories) {
        if (!m_placed.empty())
            content.append(",");
        content.append(history.opening());
        m_placed.push_back({content.size(), history.unstoredChecks().size()});
        const TextRange stored = history.storedText();
        if (!content.copy(old, stored.offset, stored.length))
            return false;
        hasCopied |= stored.length > 0;
        appendUnstored(history, content);
        content.append("]");
    }
    content.append("]");
    return !hasCopied || old.isIntact();
}

void HistoriesWriter::tell(CheckHistories &histories) const
{
    auto placed = m_placed.begin();
    std::span<const quint32> newLengths = m_newLengths;
    for (auto &[id, history] : histories) {
        history.setStored(placed->offset, newLengths.first(placed->newChecks));
        newLengths = newLengths.subspan(placed->newChecks);
        ++placed;
    }
}

void HistoriesWriter::appendUnstored(const CheckHistory &history, ContentWriter &content)
{
    bool isFirst = history.storedText().length == 0;
    for (const Check &check : history.unstoredChecks()) {
        if (!std::exchange(isFirst, false))
            content.append(",");
        m_text.clear();
        appendCheck(m_text, check);
        content.append(m_text);
        m_newLengths.push_back(static_cast<quint32>(m_text.size()));
    }
}

} // namespace ostrel
