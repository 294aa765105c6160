#include "CheckJson.h"
