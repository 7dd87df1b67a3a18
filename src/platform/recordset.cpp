#include "platform/recordset.h"
