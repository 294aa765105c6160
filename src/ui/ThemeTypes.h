#pragma once

#include "PixelItem.h"

#include <QtQml/qqmlregistration.h>

// Types of the theme that this module's own derive from.

namespace ostrel {

struct PixelItemForeign
{
    Q_GADGET
    QML_FOREIGN(ostrel::PixelItem)
    QML_ANONYMOUS
};

} // namespace ostrel
