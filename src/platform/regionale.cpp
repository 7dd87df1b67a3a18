#include "platform/regionale.h"
