#include "CheckHistory.h"
