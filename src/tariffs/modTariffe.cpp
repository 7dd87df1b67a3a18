#include "tariffs/modTariffe.h"
