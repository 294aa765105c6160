#pragma once

#include "FileDescriptor.h"

#include <QFile>
#include <QStringList>

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <sys/inotify.h>
#include <unistd.h>

namespace ostrel::test {

/// Notices which names of a folder are removed. A temporary file's is if the file has exchanged
/// names with the one that it replaces, but not if it has been renamed over it.
class RemovedNames
{
public:
    explicit RemovedNames(const QString &folder)
        : m_events(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC))
    {
        const QByteArray path = QFile::encodeName(folder);
        EXPECT_GE(::inotify_add_watch(m_events.number(), path.constData(), IN_DELETE), 0);
    }

    /// Those that were since the last call.
    [[nodiscard]] QStringList take() const
    {
        alignas(inotify_event) std::array<char, 16384> events{};
        const ssize_t size = ::read(m_events.number(), events.data(), events.size());
        QStringList names;
        for (ssize_t at = 0; at < size;) {
            const auto *event = reinterpret_cast<const inotify_event *>(&events[std::size_t(at)]);
            names += QFile::decodeName(event->name);
            at += ssize_t(sizeof(inotify_event) + event->len);
        }
        return names;
    }

private:
    FileDescriptor m_events;
};

} // namespace ostrel::test
