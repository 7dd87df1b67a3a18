#include "feenote/modDescrizione.h"
