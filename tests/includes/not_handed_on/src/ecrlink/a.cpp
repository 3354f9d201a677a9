#include "platform/a.h"
