#include "IoThread.h"

