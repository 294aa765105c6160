#include "CommandLine.h"
