#include "platform/impostazioni.h"
