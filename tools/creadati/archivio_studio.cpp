#include "creadati/archivio_studio.h"
