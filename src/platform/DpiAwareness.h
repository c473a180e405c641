#pragma once

// Tells the window system, before the application object exists, that the
// program scales itself for each monitor. Where Qt alone decides, it does
// nothing.
void declarePerMonitorDpiAwareness();
