#include "FreedesktopWakeSignal.h"
