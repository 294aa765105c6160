#pragma once

#include "ContinuousClock.h"
#include "LoginItem.h"
#include "MotionPreference.h"
#include "NetworkPresence.h"
#include "NotificationCenter.h"
#include "StatusBarHost.h"
#include "TerminationSignal.h"
#include "WakeSignal.h"
#include "Workspace.h"

#include <functional>
#include <memory>

namespace ostrel {

/// Shows a notification by the interface's own means, for desktops without a service for it.
using NotificationPresenter = std::function<void(const NotificationRequest &)>;

// The implementations of the ports that this build was configured for (OSTREL_PLATFORM). None of
// these blocks, whatever the desktop lacks.

/// Lets the program open as many files as the system allows it. The programs that it starts get the
/// limit that it was started with. First of all.
void raiseDescriptorLimit();

/// Reads which faces the desktop has and prefers, which lasts milliseconds, so that the first text
/// doesn't wait for that. Any thread.
void readFontConfiguration();

/// Keeps the toolkit from those of the desktop's services that don't answer: it would wait for
/// them. Takes a millisecond or two; a quarter of a second at most where one is silent. Before
/// there is an application.
void avoidSilentServices();

/// Begins, on another thread, what the others would else wait for. Once there is an application.
void preparePlatform();

[[nodiscard]] std::unique_ptr<NotificationCenter>
makeNotificationCenter(const NotificationPresenter &presenter);
/// Has the calling thread, and no other, yield to those that want the processor. It still gets a
/// share of it: one that got none could hold a lock of the allocator's for seconds.
void lowerThreadPriority();
/// Now, on this system's continuous clock. Any thread.
[[nodiscard]] ContinuousTime continuousNow();
[[nodiscard]] std::unique_ptr<WakeSignal> makeWakeSignal();
[[nodiscard]] std::unique_ptr<NetworkPresence> makeNetworkPresence();
[[nodiscard]] std::unique_ptr<LoginItem> makeLoginItem();
[[nodiscard]] std::unique_ptr<StatusBarHost> makeStatusBarHost();
[[nodiscard]] std::unique_ptr<TerminationSignal> makeTerminationSignal();
[[nodiscard]] std::unique_ptr<Workspace> makeWorkspace();
[[nodiscard]] std::unique_ptr<MotionPreference> makeMotionPreference();

} // namespace ostrel
