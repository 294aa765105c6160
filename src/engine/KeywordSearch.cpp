#include "KeywordSearch.h"
