#pragma once

#include "MonitorForm.h"

#include <QtQml/qqml.h>

namespace ostrel {

/// MonitorForm, which doesn't depend on QML, as a QML type.
struct MonitorFormType
{
    Q_GADGET
    QML_FOREIGN(ostrel::MonitorForm)
    QML_NAMED_ELEMENT(MonitorForm)
    QML_UNCREATABLE("Made by the application")
};

} // namespace ostrel
