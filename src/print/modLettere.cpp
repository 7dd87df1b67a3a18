#include "print/modLettere.h"
