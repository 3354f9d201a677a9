#include "ecrlink/a.h"
