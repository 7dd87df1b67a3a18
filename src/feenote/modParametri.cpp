#include "feenote/modParametri.h"
