#include "feenote/modTotali.h"
