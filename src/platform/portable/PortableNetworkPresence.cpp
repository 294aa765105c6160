#include "PortableNetworkPresence.h"
