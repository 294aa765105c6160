#include "PortableLoginItem.h"

namespace ostrel {

bool PortableLoginItem::registerItem()
{
    return false;
}

bool PortableLoginItem::unregisterItem()
{
    return false;
}

} // namespace ostrel
