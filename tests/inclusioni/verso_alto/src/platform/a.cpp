#include "core/a.h"
