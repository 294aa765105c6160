#include "AtomicFile.h"
