#include "platform/superficie.h"
