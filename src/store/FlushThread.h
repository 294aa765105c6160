#pragma once

#include "AtomicFile.h"
#include "WorkThread.h"

#include <QString>

#include <chrono>
#include <future>
#include <memory>

namespace ostrel {

/// Has the disk take what was written, on a thread of its own: that lasts some milliseconds, or as
/// long as a disk hangs. One thread, where not said otherwise.
class FlushThread
{
public:
    /// @p sync is what lasts.
    explicit FlushThread(AtomicFile::Sync sync = AtomicFile::waitForTheDisk);

    /// Flushes the open @p file, and waits for that for @p patience at most. False, with errno, if
    /// it has failed by then.
    bool flushWithin(std::chrono::milliseconds patience, const FileDescriptor &file);
    /// Flushes the content that @p file has when its turn comes, and its name. Nobody waits.
    void flushLater(const AtomicFile &file);
    /// Replaces the file at @p copyPath by the content that @p file has when its turn comes,
    /// flushed before it gets that name. Nobody waits.
    void copyLater(const AtomicFile &file, const QString &copyPath);
    /// Waits for @p patience at most until all of that is done.
    void finish(std::chrono::milliseconds patience);

private:
    /// Zero or errno of what @p work, which is done after all before, makes of it.
    std::future<int> post(std::function<bool(const AtomicFile::Sync &)> work);

    AtomicFile::Sync m_sync;
    std::unique_ptr<WorkThread> m_thread; ///< Null until there is something to do.
};

} // namespace ostrel
