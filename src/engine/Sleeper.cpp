#include "Sleeper.h"
