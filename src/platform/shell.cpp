#include "platform/shell.h"
