#include "HistoriesReader.h"

#include "CheckJson.h"
#include "UuidText.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <string_view>

namespace ostrel {

namespace {

/// Builds the histories while the file is read.
class HistoryLoader : public CheckMapVisitor
{
public:
    void openHistory(const QUuid &monitorId) override
    {
        m_open = &m_histories.insert_or_assign(monitorId, CheckHistory(monitorId)).first->second;
    }
    void takeCheck(Check &&check, std::optional<TextRange> compact) override
    {
        if (compact)
            m_open->append(std::move(check), *compact);
        else
            m_open->append(check);
    }

    [[nodiscard]] CheckHistories take() { return std::move(m_histories); }

private:
    CheckHistories m_histories;
    CheckHistory *m_open = nullptr;
};

/// Whether a history ends at @p bracket: the text there is `}],"`, 36 characters and `",[`.
///
/// The quotes of that text can't be inside a string. It can occur elsewhere, deep inside a value
/// that this program doesn't know, but then neither what precedes it nor what follows it is a map.
bool isEndOfAHistory(std::string_view text, std::size_t bracket)
{
    constexpr std::string_view end = "}],\"";
    constexpr std::string_view next = "\",[";
    if (bracket == 0)
        return false;
    const std::string_view rest = text.substr(bracket - 1);
    return rest.size() >= end.size() + uuidTextLength + next.size() && rest.starts_with(end) &&
           rest.substr(end.size() + uuidTextLength).starts_with(next);
}

/// The end of the last history that is completely in @p text and followed by another: the index of
/// the comma after its bracket. npos if there is no such place.
std::size_t lastEndOfAHistory(std::string_view text)
{
    std::size_t bracket = text.rfind(']');
    while (bracket != std::string_view::npos && bracket > 0) {
        if (isEndOfAHistory(text, bracket))
            return bracket + 1;
        bracket = text.rfind(']', bracket - 1);
    }
    return std::string_view::npos;
}

/// Reads a map from a file in parts, each of which is turned into a map of its own.
class PartedReader
{
public:
    PartedReader(const FileSnapshot &content, CheckMapVisitor &visitor, std::size_t room)
        : m_content(content)
        , m_decoder(visitor)
    {
        makeRoom(room);
    }

    [[nodiscard]] bool read()
    {
        while (fill()) {
            if (isAtEnd())
                return m_decoder.decode({m_text.get(), m_length}, m_offset);
            const std::size_t end = lastEndOfAHistory({m_text.get(), m_length});
            if (end == std::string_view::npos)
                makeRoom(2 * m_room);
            else if (!readUpTo(end))
                return false;
        }
        return false;
    }

private:
    void makeRoom(std::size_t room)
    {
        auto text = std::make_unique_for_overwrite<char[]>(room + CheckMapDecoder::padding);
        std::copy_n(m_text.get(), m_length, text.get());
        m_text = std::move(text);
        m_room = room;
    }

    [[nodiscard]] bool fill()
    {
        const quint64 rest = m_content.size() - m_offset - m_length;
        const auto count = static_cast<std::size_t>(std::min<quint64>(rest, m_room - m_length));
        if (!m_content.read(m_offset + m_length, {m_text.get() + m_length, count}))
            return false;
        m_length += count;
        return true;
    }

    [[nodiscard]] bool isAtEnd() const { return m_offset + m_length == m_content.size(); }

    /// Decodes what precedes the comma at @p end, and makes what follows it the beginning of the
    /// next map.
    [[nodiscard]] bool readUpTo(std::size_t end)
    {
        m_text[end] = ']';
        if (!m_decoder.decode({m_text.get(), end + 1}, m_offset))
            return false;
        m_text[end] = '[';
        m_length -= end;
        m_offset += end;
        std::memmove(m_text.get(), m_text.get() + end, m_length);
        return true;
    }

    const FileSnapshot &m_content;
    CheckMapDecoder m_decoder;
    std::unique_ptr<char[]> m_text;
    std::size_t m_room = 0;
    std::size_t m_length = 0; ///< Of the text in the buffer.
    quint64 m_offset = 0;     ///< The text's position in the file.
};

} // namespace

std::optional<CheckHistories> readHistories(const FileSnapshot &content, std::size_t partSize)
{
    if (!content.isOfAFile() || content.size() > maxStoredFileSize)
        return std::nullopt;
    // The whole file if it can't be read in parts: these may not be what they seemed.
    for (const std::size_t room : {partSize, static_cast<std::size_t>(content.size())}) {
        HistoryLoader loader;
        if (PartedReader(content, loader, std::max<std::size_t>(room, 1)).read())
            return loader.take();
    }
    return std::nullopt;
}

} // namespace ostrel
