#include "platform/percorsi.h"
