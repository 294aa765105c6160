#include "CannedForm.h"

#include "MonitorStore.h"

#include <QTemporaryDir>

#include <array>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

using namespace std::chrono_literals;

Monitor bakeryToEdit()
{
    return {
        .id = QUuid::createUuid(),
        .name = u"Corner Bakery"_s,
        .url = u"https://bakery.example/order"_s,
        .interval = 60s,
        .keyword = u"Welcome"_s,
        .responseTimeThreshold = 450ms,
    };
}

Monitor database()
{
    Monitor monitor = bakeryToEdit();
    monitor.url = u"db.local"_s;
    monitor.type = MonitorType::port;
    monitor.port = 5432;
    return monitor;
}

void begin(MonitorForm &form)
{
    form.beginCreate({});
}

void suggest(MonitorForm &form)
{
    form.beginCreate(u"https://bakery.example/order"_s);
}

void typeWebsite(MonitorForm &form)
{
    begin(form);
    form.setUrl(u"https://bakery.example"_s);
}

void typeLongWebsite(MonitorForm &form)
{
    begin(form);
    form.setUrl(u"https://catalogue-library.upper-and-lower-wiesenthal.example/"
                "search/advanced?branch=all"_s);
    form.setKeyword(u"Opening Hours of the Municipal Library"_s);
    form.setKeywordShouldExist(false);
    form.setThresholdText(u"12345678901234567890"_s);
}

void typePort(MonitorForm &form)
{
    begin(form);
    form.setUrl(u"db.local:5432"_s);
    form.setInterval(60);
}

void choosePort(MonitorForm &form)
{
    begin(form);
    form.setMonitorType(rawValue(MonitorType::port));
}

void editWebsite(MonitorForm &form)
{
    form.beginEdit(bakeryToEdit(), {});
}

void editPort(MonitorForm &form)
{
    form.beginEdit(database(), {});
}

template<void (*fill)(MonitorForm &form)>
void withAdvanced(MonitorForm &form)
{
    fill(form);
    form.setShowAdvanced(true);
}

struct Filling
{
    const char *sample;
    void (*fill)(MonitorForm &form);
};

constexpr std::array fillings = {
    Filling{"empty", begin},
    Filling{"suggestion", suggest},
    Filling{"website", withAdvanced<suggest>},
    Filling{"valid", typeWebsite},
    Filling{"valid-advanced", withAdvanced<typeWebsite>},
    Filling{"long", withAdvanced<typeLongWebsite>},
    Filling{"port-empty", choosePort},
    Filling{"port", typePort},
    Filling{"port-advanced", withAdvanced<typePort>},
    Filling{"edit-website", editWebsite},
    Filling{"edit-website-advanced", withAdvanced<editWebsite>},
    Filling{"edit-port", editPort},
    Filling{"edit-port-advanced", withAdvanced<editPort>},
};

} // namespace

struct CannedForm::Parts
{
    QTemporaryDir folder;
    MonitorStore store{folder.path(), MonitorStore::Access::readOnly};
    MonitorForm form{store};
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
    for (const Filling &filling : fillings)
        samples += QString::fromLatin1(filling.sample);
    return samples;
}

void CannedForm::setSample(const QString &sample)
{
    m_sample = sample;
    for (const Filling &filling : fillings) {
        if (sample == QLatin1String(filling.sample))
            filling.fill(m_parts->form);
    }
}

MonitorForm *CannedForm::form()
{
    return &m_parts->form;
}

} // namespace ostrel
