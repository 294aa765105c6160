#pragma once

#include <QtGlobal>

#include <cerrno>
#include <unistd.h>
#include <utility>

namespace ostrel {

/// Repeats @p call while a signal interrupts it.
template<typename Call>
auto uninterrupted(Call call)
{
    auto result = call();
    while (result < 0 && errno == EINTR)
        result = call();
    return result;
}

/// An open file. Negative where there is none, or it could not be opened.
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

    /// False where the system reports only now that it could not write.
    bool close()
    {
        if (!isOpen())
            return true;
        const int result = ::close(std::exchange(m_number, -1));
        // The descriptor is closed all the same, so another try would close somebody else's.
        return result == 0 || errno == EINTR;
    }

private:
    int m_number;
};

} // namespace ostrel
