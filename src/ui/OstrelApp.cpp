#include "OstrelApp.h"
