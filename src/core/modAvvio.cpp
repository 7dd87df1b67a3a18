#include "core/modAvvio.h"
