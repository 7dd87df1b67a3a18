// What this process holds, for tests of windows that come and go.
#pragma once

#include <QApplication>

#include <malloc.h>

/// Bytes in use on the heap, whatever the system has given for them; 0 where another allocator stands in for
/// the library's, as the sanitizers' does.
inline qint64 ByteInUso()
{
    return qint64(mallinfo2().uordblks + mallinfo2().hblkhd);
}

/// What has come since this object was made and is still there. Widgets are counted everywhere; bytes stay 0
/// under the sanitizers, which look for what is lost by themselves.
class Resti
{
public:
    [[nodiscard]] qsizetype Widget() const { return QApplication::allWidgets().size() - WidgetPrima; }
    [[nodiscard]] qint64 Byte() const { return ByteInUso() - BytePrima; }

private:
    qsizetype WidgetPrima = QApplication::allWidgets().size();
    qint64 BytePrima = ByteInUso();
};
