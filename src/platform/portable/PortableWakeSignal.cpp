#include "PortableWakeSignal.h"
