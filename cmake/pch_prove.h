// Precompiled by the test programs of what has no windows.
#pragma once

#include "pch_core.h"

#include <QObject>
#include <QTest>
