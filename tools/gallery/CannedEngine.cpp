#include "CannedEngine.h"

#include "MonitorCheck.h"
#include "MonitoringEngine.h"
#include "NetworkPresence.h"
#include "NotificationCenter.h"
#include "NotificationManager.h"
#include "Sleeper.h"
#include "WakeSignal.h"

#include <QPromise>

#include <chrono>

namespace ostrel {

namespace {

/// Checks that never end.
class EndlessCheck : public MonitorCheck
{
public:
    EndlessCheck() { m_promise.start(); }
    [[nodiscard]] QFuture<Check> run(const Monitor & /*monitor*/) override
    {
        return m_promise.future();
    }

private:
    QPromise<Check> m_promise;
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
              .networkPresence = networkPresence,
              .sleeper = sleeper,
          })
    {
    }

    EndlessCheck check;
    NoNotificationCenter center;
    NotificationManager notifications{center};
    WakeSignal wakeSignal;
    NetworkPresence networkPresence;
    TimerSleeper sleeper{[] { return std::chrono::steady_clock::now().time_since_epoch(); }};
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
