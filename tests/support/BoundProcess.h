#pragma once

#include <QProcess>

#include <chrono>

namespace ostrel::test {

/// A child process that never outlives its parent: it is killed with this object, or by the kernel
/// if the parent dies first.
class BoundProcess : public QProcess
{
    Q_OBJECT

public:
    explicit BoundProcess(QObject *parent = nullptr);
    ~BoundProcess() override;

    /// Writes the child's error output, which otherwise goes where this program's goes, to a file.
    void logTo(const QString &path);
    /// Waits for the next line of the child's output, and returns it without its end; empty if none
    /// comes within @p patience.
    [[nodiscard]] QByteArray nextLine(std::chrono::milliseconds patience = std::chrono::minutes(1));

    /// Sends SIGTERM and waits for the end; false if the child doesn't end.
    bool stop();
};

} // namespace ostrel::test
