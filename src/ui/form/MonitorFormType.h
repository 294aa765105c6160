#pragma once

#include "MonitorForm.h"

#include <QtQml/qqml.h>

namespace ostrel {

/// MonitorForm, which knows nothing of QML, as a type of QML's.
struct MonitorFormType
{
    Q_GADGET
    QML_FOREIGN(ostrel::MonitorForm)
    QML_NAMED_ELEMENT(MonitorForm)
    QML_UNCREATABLE("Made by the application")
};

} // namespace ostrel
