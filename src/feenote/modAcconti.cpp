#include "feenote/modAcconti.h"
