#include "platform/tabellarighe.h"
