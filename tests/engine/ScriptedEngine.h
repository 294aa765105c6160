#pragma once

#include "EngineFakes.h"
#include "MonitorStore.h"
#include "MonitoringEngine.h"
#include "NotificationManager.h"
#include "RecordingNotificationCenter.h"
#include "WakeSignal.h"

#include <QTemporaryDir>

namespace ostrel::test {

using namespace Qt::StringLiterals;

/// A store in a fresh folder.
struct FolderStore
{
    QTemporaryDir folder;
    MonitorStore store{folder.filePath(u"data"_s)};
};

/// An engine whose checks, sleeps and wakes the test controls.
struct ScriptedEngine
{
    explicit ScriptedEngine(MonitorStore &watched)
        : engine(
              {watched, httpCheck, portCheck, notifications, wakeSignal, networkPresence, sleeper})
    {
    }

    ScriptedCheck httpCheck;
    ScriptedCheck portCheck;
    RecordingNotificationCenter center;
    NotificationManager notifications{center};
    WakeSignal wakeSignal;
    ScriptedPresence networkPresence;
    ManualSleeper sleeper;
    MonitoringEngine engine;
};

} // namespace ostrel::test
