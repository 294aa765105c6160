#include "StatusLabel.h"

#include <QCoreApplication>
#include <QLocale>

namespace ostrel {

namespace {

struct StatusLabel
{
    Q_DECLARE_TR_FUNCTIONS(StatusLabel)
};

} // namespace

QString statusWord(MonitorStatus status)
{
    switch (status) {
    case MonitorStatus::up:
        return StatusLabel::tr("Up");
    case MonitorStatus::down:
        return StatusLabel::tr("Down");
    case MonitorStatus::paused:
        return StatusLabel::tr("Paused");
    case MonitorStatus::pending:
        return StatusLabel::tr("Pending");
    }
    Q_UNREACHABLE();
}

QString pillWord(MonitorStatus status)
{
    return QLocale().toUpper(statusWord(status));
}

QString statusSymbol(MonitorStatus status)
{
    switch (status) {
    case MonitorStatus::up:
        return QStringLiteral("checkmark.circle.fill");
    case MonitorStatus::down:
        return QStringLiteral("exclamationmark.triangle.fill");
    case MonitorStatus::paused:
        return QStringLiteral("moon.circle.fill");
    case MonitorStatus::pending:
        return QStringLiteral("circle.dotted.circle");
    }
    Q_UNREACHABLE();
}

} // namespace ostrel
