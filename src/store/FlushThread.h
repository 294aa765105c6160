#pragma once

#include "AtomicFile.h"
#include "WorkThread.h"

#include <QFuture>
#include <QString>

#include <chrono>
#include <future>
#include <memory>

namespace ostrel {

/// Flushes written data to the disk on a thread of its own: that takes some milliseconds, or as
/// long as a disk hangs. Used from one thread.
class FlushThread
{
public:
    /// @p sync is the slow call.
    explicit FlushThread(AtomicFile::Sync sync = AtomicFile::waitForTheDisk);

    /// Flushes the open @p file, and waits for it at most @p patience. False, with errno, if it has
    /// failed by then.
    bool flushWithin(std::chrono::milliseconds patience, const FileDescriptor &file);
    /// Flushes, without waiting, the content that @p file has when its turn comes, and its name.
    void flushLater(const AtomicFile &file);
    /// Replaces the file at @p copyPath, without waiting, with the content that @p file has when
    /// its turn comes. The content is flushed before it gets that name. The future's result is
    /// true once the copy is on the disk, false if that has failed; there is none if it is dropped.
    [[nodiscard]] QFuture<bool> copyLater(const AtomicFile &file, const QString &copyPath);
    /// Waits at most @p patience until all of this is done.
    void finish(std::chrono::milliseconds patience);

private:
    /// Runs @p work after all earlier work. The future has 0, or errno if @p work returns false.
    std::future<int> post(std::function<bool(const AtomicFile::Sync &)> work);

    [[nodiscard]] WorkThread &thread();

    AtomicFile::Sync m_sync;
    std::unique_ptr<WorkThread> m_thread; ///< Null until there is something to do.
};

} // namespace ostrel
