#include "platform/criterio.h"
