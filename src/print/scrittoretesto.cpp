#include "print/scrittoretesto.h"
