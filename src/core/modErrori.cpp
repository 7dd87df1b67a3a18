#include "core/modErrori.h"
