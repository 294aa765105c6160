#include "PortableLoginItem.h"
