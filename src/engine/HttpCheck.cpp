#include "HttpCheck.h"
