#include "SSLCaptureDelegate.h"
