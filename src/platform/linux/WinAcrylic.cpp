#include "platform/WinAcrylic.h"

// X11 has no window materials: the panel paints its own translucent fill.

void WinAcrylic::applyMica(QObject *) { }

void WinAcrylic::applyAcrylic(QObject *) { }

void WinAcrylic::applyDarkTitleBar(QObject *) { }
