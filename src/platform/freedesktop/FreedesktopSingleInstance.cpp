#include "FreedesktopSingleInstance.h"
