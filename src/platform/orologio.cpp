#include "platform/orologio.h"
