#include "feenote/modVariazione.h"
