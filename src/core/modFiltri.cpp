#include "core/modFiltri.h"
