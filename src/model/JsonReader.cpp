#include "JsonReader.h"
