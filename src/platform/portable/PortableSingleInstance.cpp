#include "PortableSingleInstance.h"
