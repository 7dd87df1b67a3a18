#include "feenote/modSpese.h"
