#include "Search/SearchQuery.h"
