#include "hotkeys/HotkeyLogging.h"

Q_LOGGING_CATEGORY(lcHotkeys, "glimmora.hotkeys")
