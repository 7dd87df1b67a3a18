#include "cli/comandi.h"
