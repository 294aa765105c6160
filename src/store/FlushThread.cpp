#include "FlushThread.h"

#include <cerrno>
#include <fcntl.h>

namespace ostrel {

FlushThread::FlushThread(AtomicFile::Sync sync)
    : m_sync(std::move(sync))
{
}

bool FlushThread::flushWithin(std::chrono::milliseconds patience, const FileDescriptor &file)
{
    // A duplicate, since the caller closes the file whether the flush is done or not.
    const auto held = std::make_shared<FileDescriptor>(::fcntl(file.number(), F_DUPFD_CLOEXEC, 0));
    if (!held->isOpen())
        return false;
    auto outcome = post([held](const AtomicFile::Sync &sync) { return sync(*held); });
    if (outcome.wait_for(patience) != std::future_status::ready)
        return true;
    errno = outcome.get();
    return errno == 0;
}

void FlushThread::flushLater(const AtomicFile &file)
{
    post([file](const AtomicFile::Sync &sync) { return file.flush(sync); });
}

QFuture<bool> FlushThread::copyLater(const AtomicFile &file, const QString &copyPath)
{
    return thread().run([file, copyPath, sync = m_sync] {
        const FileSnapshot original = file.snapshot();
        const auto fill = [&original](ContentWriter &content) {
            return content.copy(original, 0, original.size());
        };
        const AtomicFile copy(copyPath, sync);
        return original.isOfAFile() && copy.write(fill, AtomicFile::Flush::beforeReplacing) &&
               copy.flush(sync);
    });
}

void FlushThread::finish(std::chrono::milliseconds patience)
{
    if (m_thread)
        post([](const AtomicFile::Sync &) { return true; }).wait_for(patience);
}

std::future<int> FlushThread::post(std::function<bool(const AtomicFile::Sync &)> work)
{
    const auto promise = std::make_shared<std::promise<int>>();
    auto outcome = promise->get_future();
    thread().post([promise, work = std::move(work), sync = m_sync] {
        promise->set_value(work(sync) ? 0 : errno);
    });
    return outcome;
}

WorkThread &FlushThread::thread()
{
    if (!m_thread)
        m_thread = std::make_unique<WorkThread>();
    return *m_thread;
}

} // namespace ostrel
