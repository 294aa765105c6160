#pragma once

namespace ostrel {

/// The interface that tells whether this program may write to a data folder. Main thread.
class FolderOwnership
{
public:
    FolderOwnership() = default;
    FolderOwnership(const FolderOwnership &) = delete;
    FolderOwnership &operator=(const FolderOwnership &) = delete;
    virtual ~FolderOwnership() = default;

    /// Whether the folder that is now at the path is ours. Takes ownership if it is a different
    /// folder than before and has no owner. Called before every save, so it takes some microseconds
    /// and never blocks.
    [[nodiscard]] virtual bool renew() = 0;
};

} // namespace ostrel
