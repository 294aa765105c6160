#include "StatusMenuEntry.h"

#include "DisplayFormats.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

struct MenuTexts
{
    Q_DECLARE_TR_FUNCTIONS(StatusMenuEntry)
};

QString menuSymbol(MonitorStatus status)
{
    switch (status) {
    case MonitorStatus::up:
        return u"checkmark.circle.fill"_s;
    case MonitorStatus::down:
        return u"xmark.circle.fill"_s;
    case MonitorStatus::paused:
    case MonitorStatus::pending:
        return u"circle.dotted"_s;
    }
    Q_UNREACHABLE();
}

QString trailingText(MonitorStatus status, const std::optional<Check> &latestCheck)
{
    if (status == MonitorStatus::down)
        return MenuTexts::tr("DOWN");
    if (latestCheck && latestCheck->isUp)
        return compactResponseTimeText(Milliseconds(latestCheck->responseTime));
    return {};
}

} // namespace

StatusMenuEntry statusMenuEntry(const Monitor &monitor, MonitorStatus status,
                                const std::optional<Check> &latestCheck)
{
    return {
        .symbol = menuSymbol(status),
        .name = nameText(monitor),
        .trailingText = trailingText(status, latestCheck),
    };
}

} // namespace ostrel
