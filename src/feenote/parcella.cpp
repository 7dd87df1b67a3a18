#include "feenote/parcella.h"
