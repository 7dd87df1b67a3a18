#include "core/modTesti.h"
