#pragma once

#include <QByteArray>

#include <chrono>

namespace ostrel {

/// How long a program that owns a data folder may take to answer. A busy computer needs seconds.
constexpr std::chrono::seconds usualPatience{20};

/// The way to the program that owns a data folder, for commands. Main thread.
class RequestChannel
{
public:
    enum class Result {
        answered, ///< The folder's owner has answered.
        ours,     ///< No other program owns the folder; this one does from now on.
        silent,   ///< Another program owns it but doesn't answer. It may still do what was asked.
        unusable, ///< The folder can't be owned (read-only, foreign, no folder).
    };
    struct Answer
    {
        Result result = Result::unusable;
        QByteArray line = {}; ///< For MonitorRequests; without its end.
    };

    RequestChannel() = default;
    RequestChannel(const RequestChannel &) = delete;
    RequestChannel &operator=(const RequestChannel &) = delete;
    virtual ~RequestChannel() = default;

    /// Makes @p request, one line, unless the folder is ours. Blocks for @p patience at most.
    [[nodiscard]] virtual Answer ask(const QByteArray &request,
                                     std::chrono::milliseconds patience) = 0;
    /// Gives the folder up if it is ours.
    virtual void release() = 0;
};

} // namespace ostrel
