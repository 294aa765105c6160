#include "FreedesktopNotificationCenter.h"
