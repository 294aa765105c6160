#pragma once

#include "PixelItem.h"

#include <QtQml/qqmlregistration.h>

// Theme types that this module's types derive from.

namespace ostrel {

struct PixelItemForeign
{
    Q_GADGET
    QML_FOREIGN(ostrel::PixelItem)
    QML_ANONYMOUS
};

} // namespace ostrel
