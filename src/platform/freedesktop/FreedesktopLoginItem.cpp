#include "FreedesktopLoginItem.h"
