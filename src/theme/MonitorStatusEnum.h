#pragma once

#include "Monitor.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

/// Available to views as `MonitorStatus.Up` and so on: the records' enumeration with names that QML
/// accepts. The numbers are the same, so a model can return either.
namespace ostrel::MonitorStatusEnum {

Q_NAMESPACE
QML_NAMED_ELEMENT(MonitorStatus)

enum Value {
    Up = static_cast<int>(MonitorStatus::up),
    Down = static_cast<int>(MonitorStatus::down),
    Paused = static_cast<int>(MonitorStatus::paused),
    Pending = static_cast<int>(MonitorStatus::pending),
};
Q_ENUM_NS(Value)

} // namespace ostrel::MonitorStatusEnum
