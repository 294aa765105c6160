#include "ContentWriter.h"

#include <algorithm>

namespace ostrel {

namespace {

/// Smaller parts cost a file system more than they save: on ext4, copying in parts of 64 KiB took
/// 1.2 times one large write, in parts of this size 1.05 times.
constexpr std::size_t partSize = 1 << 18;

} // namespace

ContentWriter::ContentWriter(int descriptor)
    : m_descriptor(descriptor)
    , m_gathered(std::make_unique_for_overwrite<char[]>(partSize))
{
}

void ContentWriter::append(std::string_view text)
{
    while (!text.empty()) {
        const auto room = roomFor(text.size());
        std::ranges::copy(text.substr(0, room.size()), room.begin());
        take(room.size());
        text.remove_prefix(room.size());
    }
}

bool ContentWriter::copy(const FileSnapshot &source, quint64 offset, quint64 length)
{
    while (length > 0) {
        const auto room = roomFor(length);
        if (!source.read(offset, room))
            return false;
        take(room.size());
        offset += room.size();
        length -= room.size();
    }
    return true;
}

bool ContentWriter::finish()
{
    flush();
    errno = m_error;
    return m_error == 0;
}

/// Space for at least one and at most @p length more bytes.
std::span<char> ContentWriter::roomFor(quint64 length)
{
    if (m_gatheredSize == partSize)
        flush();
    const auto size = std::min<quint64>(length, partSize - m_gatheredSize);
    return {m_gathered.get() + m_gatheredSize, static_cast<std::size_t>(size)};
}

void ContentWriter::take(std::size_t count)
{
    m_gatheredSize += count;
    m_size += count;
}

void ContentWriter::flush()
{
    std::string_view rest(m_gathered.get(), std::exchange(m_gatheredSize, 0));
    while (!rest.empty() && m_error == 0) {
        const auto written =
            uninterrupted([&] { return ::write(m_descriptor, rest.data(), rest.size()); });
        if (written <= 0)
            m_error = written < 0 ? errno : EIO;
        rest.remove_prefix(static_cast<std::size_t>(std::max<ssize_t>(written, 0)));
    }
}

} // namespace ostrel
