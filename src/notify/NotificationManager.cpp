#include "NotificationManager.h"
