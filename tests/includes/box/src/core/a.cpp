#include "platform/b.h"
