#include "platform/DpiAwareness.h"

// X11 has no process-wide awareness to declare: Qt scales per screen itself.
void declarePerMonitorDpiAwareness() { }
