#include "core/sessione.h"
