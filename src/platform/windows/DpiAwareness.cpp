#include "platform/DpiAwareness.h"

#include <shellscalingapi.h>
#include <windows.h>

void declarePerMonitorDpiAwareness()
{
    // A refusal (the awareness was already set, by a manifest for example)
    // leaves the process as it is.
    SetProcessDpiAwareness(PROCESS_PER_MONITOR_DPI_AWARE);
}
