#include "core/modLancio.h"
