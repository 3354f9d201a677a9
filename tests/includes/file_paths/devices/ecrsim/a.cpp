#include "customers/a.h"
