// The message seam as Qt Widgets gives it.
#pragma once

#include "platform/system/messaggi.h"

/// Boxes and dialogs over the active window; texts are shown as they are, never as rich text.
[[nodiscard]] Messaggi MessaggiQt();
