#include "PeriodicTask.h"
