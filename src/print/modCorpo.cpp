#include "print/modCorpo.h"
