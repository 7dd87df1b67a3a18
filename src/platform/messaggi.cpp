#include "platform/messaggi.h"
