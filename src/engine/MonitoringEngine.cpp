#include "MonitoringEngine.h"
