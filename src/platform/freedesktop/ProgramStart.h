#pragma once

#include <QFuture>
#include <QStringList>

#include <chrono>

namespace ostrel {

// Programs of the desktop, which outlive this one. Main thread.

/// Starts @p command; false if there is no such program.
bool startDetached(const QStringList &command);

/// Starts @p command and watches it for @p patience. The result is false if there is no such
/// program or if it fails in this time, and true if it ends well or is still at work.
QFuture<bool> startWatched(const QStringList &command, std::chrono::milliseconds patience);

} // namespace ostrel
