// Precompiled by the test programs of what shows windows.
#pragma once

#include "pch_widgets.h"

#include <QTest>
