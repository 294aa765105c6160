#include "CannedForm.h"

#include "MonitorCheck.h"
#include "MonitorStore.h"
#include "MonitoringEngine.h"
#include "NotificationCenter.h"
#include "NotificationManager.h"
#include "Sleeper.h"
#include "WakeSignal.h"

#include <QTemporaryDir>

#include <array>

namespace ostrel {

namespace {

using namespace std::chrono_literals;

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

Monitor bakery()
{
    return {
        .id = QUuid::createUuid(),
        .name = QStringLiteral("Corner Bakery"),
        .url = QStringLiteral("https://bakery.example/order"),
        .interval = 60s,
        .keyword = QStringLiteral("Welcome"),
        .responseTimeThreshold = 450ms,
    };
}

Monitor database()
{
    Monitor monitor = bakery();
    monitor.url = QStringLiteral("db.local");
    monitor.type = MonitorType::port;
    monitor.port = 5432;
    return monitor;
}

void suggest(MonitorForm &form)
{
    form.beginCreate(QStringLiteral("https://bakery.example/order"));
}

void suggestWithAdvanced(MonitorForm &form)
{
    suggest(form);
    form.setShowAdvanced(true);
}

void typeWebsite(MonitorForm &form)
{
    form.beginCreate({});
    form.setUrl(QStringLiteral("https://bakery.example"));
}

void typePort(MonitorForm &form)
{
    form.beginCreate({});
    form.setUrl(QStringLiteral("db.local:5432"));
    form.setInterval(60);
}

void editWebsite(MonitorForm &form)
{
    form.beginEdit(bakery(), {});
    form.setShowAdvanced(true);
}

void editPort(MonitorForm &form)
{
    form.beginEdit(database(), {});
    form.setShowAdvanced(true);
}

struct Recipe
{
    const char *sample;
    void (*fill)(MonitorForm &form);
};

constexpr std::array recipes = {
    Recipe{"suggestion", suggest},       Recipe{"website", suggestWithAdvanced},
    Recipe{"valid", typeWebsite},        Recipe{"port", typePort},
    Recipe{"edit-website", editWebsite}, Recipe{"edit-port", editPort},
};

} // namespace

struct CannedForm::Parts
{
    QTemporaryDir folder;
    MonitorStore store{folder.path(), MonitorStore::Access::readOnly};
    NoCheck check;
    NoNotificationCenter center;
    NotificationManager notifications{center};
    WakeSignal wakeSignal;
    TimerSleeper sleeper;
    MonitoringEngine engine{{
        .store = store,
        .httpCheck = check,
        .portCheck = check,
        .notifications = notifications,
        .wakeSignal = wakeSignal,
        .sleeper = sleeper,
    }};
    MonitorForm form{store, engine};
};

CannedForm::CannedForm(QObject *parent)
    : QObject(parent)
    , m_parts(std::make_unique<Parts>())
{
}

CannedForm::~CannedForm() = default;

QStringList CannedForm::samples()
{
    QStringList samples;
    for (const Recipe &recipe : recipes)
        samples += QString::fromLatin1(recipe.sample);
    return samples;
}

void CannedForm::setSample(const QString &sample)
{
    m_sample = sample;
    for (const Recipe &recipe : recipes) {
        if (sample == QLatin1String(recipe.sample))
            recipe.fill(m_parts->form);
    }
}

MonitorForm *CannedForm::form()
{
    return &m_parts->form;
}

} // namespace ostrel
