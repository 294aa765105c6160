#pragma once

#include "ContinuousClock.h"
#include "DesktopPreferences.h"
#include "LoginItem.h"
#include "NetworkPresence.h"
#include "NotificationCenter.h"
#include "StatusBarHost.h"
#include "TerminationSignal.h"
#include "WakeSignal.h"
#include "Workspace.h"

#include <functional>
#include <memory>

namespace ostrel {

/// Shows a notification by the interface's own means, for desktops without a notification service.
using NotificationPresenter = std::function<void(const NotificationRequest &)>;

// The implementations of the interfaces, as configured for this build (OSTREL_PLATFORM). None of
// these functions blocks, whatever the desktop lacks.

/// Raises the limit of open files to what the system allows. Programs that this one starts get the
/// original limit. Call this before anything else.
void raiseDescriptorLimit();

/// Reads which fonts the desktop has and prefers, which takes milliseconds, so that the first text
/// doesn't wait for that. Any thread.
void readFontConfiguration();

/// Hides from the toolkit the desktop's services that don't answer: it would wait for them. Takes a
/// millisecond or two; at most a quarter of a second if one is silent. Call this before there is an
/// application object.
void avoidSilentServices();

/// Starts, on another thread, what the other functions would otherwise wait for. Call this once
/// there is an application object.
void preparePlatform();

[[nodiscard]] std::unique_ptr<NotificationCenter>
makeNotificationCenter(const NotificationPresenter &presenter);
/// Makes the calling thread, and no other, yield to those that want the processor. It still gets a
/// share: with none it could hold a lock of the allocator for seconds.
void lowerThreadPriority();
/// The current time of this system's continuous clock. Any thread.
[[nodiscard]] ContinuousTime continuousNow();
[[nodiscard]] std::unique_ptr<WakeSignal> makeWakeSignal();
[[nodiscard]] std::unique_ptr<NetworkPresence> makeNetworkPresence();
[[nodiscard]] std::unique_ptr<LoginItem> makeLoginItem();
[[nodiscard]] std::unique_ptr<StatusBarHost> makeStatusBarHost();
[[nodiscard]] std::unique_ptr<TerminationSignal> makeTerminationSignal();
[[nodiscard]] std::unique_ptr<Workspace> makeWorkspace();
[[nodiscard]] std::unique_ptr<DesktopPreferences> makeDesktopPreferences();

} // namespace ostrel
