#include "creadati/tariffe.h"
