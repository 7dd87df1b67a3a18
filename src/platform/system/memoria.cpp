#include "platform/system/memoria.h"

#include <cstdlib>
#ifdef __GLIBC__
#include <malloc.h>
#endif

void RendiMemoria()
{
#ifdef __GLIBC__
    ::malloc_trim(0);
#endif
}
