#include "creadati/tabellatesto.h"
