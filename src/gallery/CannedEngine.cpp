#include "CannedEngine.h"

#include "MonitorCheck.h"
#include "MonitoringEngine.h"
#include "NotificationCenter.h"
#include "NotificationManager.h"
#include "Sleeper.h"
#include "WakeSignal.h"

namespace ostrel {

namespace {

class NoCheck : public MonitorCheck
{
public:
    [[nodiscard]] QFuture<Check> run(const Monitor & /*monitor*/) override { return {}; }
};

class NoNotificationCenter : public NotificationCenter
{
public:
    void requestAuthorization() override {}
    void add(const NotificationRequest & /*request*/) override {}
};

} // namespace

struct CannedEngine::Parts
{
    explicit Parts(MonitorStore &store)
        : engine({
              .store = store,
              .httpCheck = check,
              .portCheck = check,
              .notifications = notifications,
              .wakeSignal = wakeSignal,
              .sleeper = sleeper,
          })
    {
    }

    NoCheck check;
    NoNotificationCenter center;
    NotificationManager notifications{center};
    WakeSignal wakeSignal;
    TimerSleeper sleeper;
    MonitoringEngine engine;
};

CannedEngine::CannedEngine(MonitorStore &store)
    : m_parts(std::make_unique<Parts>(store))
{
}

CannedEngine::~CannedEngine() = default;

MonitoringEngine &CannedEngine::engine()
{
    return m_parts->engine;
}

} // namespace ostrel
