#include "platform/profilo.h"
