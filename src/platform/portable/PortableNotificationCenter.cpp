#include "PortableNotificationCenter.h"
