#include "tariffs/modEvaluate.h"
