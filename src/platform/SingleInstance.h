#pragma once

#include "FolderOwnership.h"

#include <QObject>
#include <QString>

#include <chrono>

namespace ostrel {

/// Sees to it that one program at a time owns a data folder, and hands a second start over to the
/// first. Main thread.
///
/// What is owned is the folder that stands at the path: where it was deleted, renamed or replaced,
/// renew() makes it again if there is none, and owns what is there.
class SingleInstance : public QObject, public FolderOwnership
{
    Q_OBJECT

public:
    enum class Claim {
        first,      ///< The folder is ours until this object or the process ends, however it ends.
        handedOver, ///< Another program has it, and has been asked to show itself.
        failed,     ///< Another program has it but doesn't answer.
        unusable,   ///< Nobody can have it (read-only, foreign, no folder). renew() may yet.
    };

    using QObject::QObject;

    /// Asks once, at start. Waits for the first program's answer for at most @p patience. The
    /// desktop's activation token, where the environment holds one, goes along.
    [[nodiscard]] virtual Claim claim(std::chrono::milliseconds patience) = 0;

Q_SIGNALS:
    /// To the first: another start has handed over to us. @p activationToken may be empty.
    void activationRequested(const QByteArray &activationToken);
    /// Once, from the event loop: another program has the folder that stands at the path now, and
    /// has been asked to show itself. renew() is false from then on.
    void ownershipLost();
};

} // namespace ostrel
