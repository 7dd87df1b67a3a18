#include "feenote/modRighe.h"
