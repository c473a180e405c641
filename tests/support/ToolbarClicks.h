#pragma once

#include <QRect>

class XTestSession;

// Drives the real program's toolbar on the control display as a user does,
// finding it on screen: its pill is the one wide dark band at the top of a
// lighter desktop. Sizes come from the pill's height, so any interface scale
// works.
namespace ToolbarClicks {

// The pill in global coordinates once it is on screen and still, else null.
QRect findPill(XTestSession &user, const QRect &screen, int timeoutMs = 10000);

// Touches the top strip (which reveals a hidden toolbar), opens the record
// menu and clicks "Record display". False if the toolbar or the menu never showed.
bool startDisplayRecording(XTestSession &user, const QRect &screen);

// Clicks the stop square of the widened record slot, found by its colour.
bool stopRecording(XTestSession &user, const QRect &screen);

} // namespace ToolbarClicks
