#include "FreedesktopTerminationSignal.h"
