#include "MonitorStore.h"
