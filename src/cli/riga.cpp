#include "cli/riga.h"
