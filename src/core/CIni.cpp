#include "core/CIni.h"
