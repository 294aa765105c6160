#include "MonitorJson.h"
