#include "feenote/modDocumento.h"
