#include "StatusLabel.h"

#include "TextLanguage.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

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
    return textLanguage().toUpper(statusWord(status));
}

QString statusSymbol(MonitorStatus status)
{
    switch (status) {
    case MonitorStatus::up:
        return u"checkmark.circle.fill"_s;
    case MonitorStatus::down:
        return u"exclamationmark.triangle.fill"_s;
    case MonitorStatus::paused:
        return u"moon.circle.fill"_s;
    case MonitorStatus::pending:
        return u"circle.dotted.circle"_s;
    }
    Q_UNREACHABLE();
}

} // namespace ostrel
