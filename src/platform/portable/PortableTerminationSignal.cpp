#include "PortableTerminationSignal.h"
