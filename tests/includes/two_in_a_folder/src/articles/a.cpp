#include "config/b.h"
