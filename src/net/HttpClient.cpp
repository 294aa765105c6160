#include "HttpClient.h"
