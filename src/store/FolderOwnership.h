#pragma once

namespace ostrel {

/// The port that tells whether a data folder is this program's to write. Main thread.
class FolderOwnership
{
public:
    FolderOwnership() = default;
    FolderOwnership(const FolderOwnership &) = delete;
    FolderOwnership &operator=(const FolderOwnership &) = delete;
    virtual ~FolderOwnership() = default;

    /// Whether the folder that stands at the path now is ours. Takes it if it is another one than
    /// before and nobody owns it. Asked before every save, so it costs some microseconds and never
    /// waits.
    [[nodiscard]] virtual bool renew() = 0;
};

} // namespace ostrel
