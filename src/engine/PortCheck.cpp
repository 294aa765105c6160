#include "PortCheck.h"
