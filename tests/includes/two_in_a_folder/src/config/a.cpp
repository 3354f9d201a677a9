#include "articles/a.h"
