#pragma once

#include "FileSnapshot.h"
#include "Invocation.h"

#include <QByteArray>
#include <QObject>
#include <QTimer>

#include <chrono>
#include <functional>

namespace ostrel {

/// Follows the status of the monitors in a folder, which is only read: prints it at the start and
/// each time that the files have changed, which it looks for once in an interval. Runs on an event
/// loop until it is destroyed.
class StatusWatch : public QObject
{
    Q_OBJECT

public:
    enum class Medium {
        terminal, ///< Each status takes the place of the one before.
        stream,   ///< A status a block, with a blank line between two, and no control characters.
    };
    using Print = std::function<void(const QByteArray &)>;

    StatusWatch(const StatusInvocation &invocation, Medium medium, Print print,
                std::chrono::milliseconds interval = std::chrono::seconds(1),
                QObject *parent = nullptr);

    /// Prints the first status; false, without effect, if the monitors can't be read.
    [[nodiscard]] bool start();

Q_SIGNALS:
    /// The files have changed, and the monitors can't be read now.
    void failed();

private:
    [[nodiscard]] bool hasChanged() const;
    [[nodiscard]] bool show();
    void look();

    StatusInvocation m_invocation;
    Medium m_medium;
    Print m_print;
    QTimer m_timer;
    FileSnapshot m_monitors; ///< As the file was just before it was last read.
    FileSnapshot m_checks;   ///< Likewise.
    bool m_hasShown = false;
};

} // namespace ostrel
