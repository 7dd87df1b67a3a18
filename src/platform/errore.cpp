#include "platform/errore.h"
