#pragma once

#include <QtGlobal>

#include <cerrno>
#include <unistd.h>
#include <utility>

namespace ostrel {

/// Retries @p call as long as a signal interrupts it.
template<typename Call>
auto uninterrupted(Call call)
{
    auto result = call();
    while (result < 0 && errno == EINTR)
        result = call();
    return result;
}

/// Owns a file descriptor. The number is negative if there is no file or it couldn't be opened.
class FileDescriptor
{
public:
    explicit FileDescriptor(int number = -1)
        : m_number(number)
    {
    }
    FileDescriptor(FileDescriptor &&other) noexcept
        : m_number(std::exchange(other.m_number, -1))
    {
    }
    FileDescriptor &operator=(FileDescriptor &&other) noexcept
    {
        std::swap(m_number, other.m_number);
        return *this;
    }
    Q_DISABLE_COPY(FileDescriptor)
    ~FileDescriptor() { close(); }

    [[nodiscard]] int number() const { return m_number; }
    [[nodiscard]] bool isOpen() const { return m_number >= 0; }

    /// False if the system reports only now that it couldn't write.
    bool close()
    {
        if (!isOpen())
            return true;
        const int result = ::close(std::exchange(m_number, -1));
        // The descriptor is closed all the same; a retry could close one that another thread
        // opened.
        return result == 0 || errno == EINTR;
    }

private:
    int m_number;
};

} // namespace ostrel
