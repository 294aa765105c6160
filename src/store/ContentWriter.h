#pragma once

#include "FileSnapshot.h"

#include <memory>
#include <string_view>

namespace ostrel {

/// Writes a file's content from its beginning, buffered into large parts.
///
/// After a write has failed, further bytes are only counted; finish() reports the failure.
class ContentWriter
{
public:
    /// Writes to the open file @p descriptor, which must outlive this object.
    explicit ContentWriter(int descriptor);

    void append(std::string_view text);
    /// Appends the @p length bytes of @p source from @p offset on. False if they can't be read; the
    /// content is then unusable.
    [[nodiscard]] bool copy(const FileSnapshot &source, quint64 offset, quint64 length);

    /// How many bytes have been appended.
    [[nodiscard]] quint64 size() const { return m_size; }

    /// Writes what is still buffered; false, with errno, if anything couldn't be written.
    [[nodiscard]] bool finish();

private:
    [[nodiscard]] std::span<char> roomFor(quint64 length);
    void take(std::size_t count);
    void flush();

    int m_descriptor;
    std::unique_ptr<char[]> m_gathered;
    std::size_t m_gatheredSize = 0;
    quint64 m_size = 0;
    int m_error = 0; ///< errno of the write that failed; 0 if none has.
};

} // namespace ostrel
