#include "platform/database.h"
