#include "feenote/modFile.h"
