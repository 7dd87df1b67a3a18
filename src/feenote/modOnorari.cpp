#include "feenote/modOnorari.h"
