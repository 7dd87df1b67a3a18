#include "feenote/modTariffeVecchie.h"
