// What this process holds, for tests of windows that come and go.
#pragma once

#include <QtGlobal>

#include <malloc.h>

/// Bytes in use on the heap, whatever the system has given for them; 0 where another allocator stands in for
/// the library's, as the sanitizers' does.
inline qint64 ByteInUso()
{
    return qint64(mallinfo2().uordblks + mallinfo2().hblkhd);
}
