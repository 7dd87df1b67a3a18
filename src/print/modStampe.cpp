#include "print/modStampe.h"
