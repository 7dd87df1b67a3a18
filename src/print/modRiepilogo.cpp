#include "print/modRiepilogo.h"
