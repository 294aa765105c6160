#pragma once

#include "FileSnapshot.h"

#include <memory>
#include <string_view>

namespace ostrel {

/// Writes a file's content from its beginning, gathered into large parts.
///
/// After a write has failed, what follows is only counted; finish() tells.
class ContentWriter
{
public:
    /// Of the open file @p descriptor, which outlives it.
    explicit ContentWriter(int descriptor);

    void append(std::string_view text);
    /// Appends the @p length bytes of @p source from @p offset on. False where they can't be read;
    /// then the content is of no use.
    [[nodiscard]] bool copy(const FileSnapshot &source, quint64 offset, quint64 length);

    /// How many bytes have been appended.
    [[nodiscard]] quint64 size() const { return m_size; }

    /// Writes what is still gathered; false where anything could not be written, with errno.
    [[nodiscard]] bool finish();

private:
    [[nodiscard]] std::span<char> roomFor(quint64 length);
    void take(std::size_t count);
    void flush();

    int m_descriptor;
    std::unique_ptr<char[]> m_gathered;
    std::size_t m_gatheredSize = 0;
    quint64 m_size = 0;
    int m_error = 0; ///< Of the write that has failed; 0 if none has.
};

} // namespace ostrel
