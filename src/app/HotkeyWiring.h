#pragma once

class AppController;
class DrawingModel;
class HotkeyManager;
class SettingsManager;

// The global hotkeys follow the settings and the overlay state, and their
// commands end in the controller. All four objects must outlive the wiring.
void wireHotkeys(HotkeyManager &hotkeys, SettingsManager &settings, AppController &controller,
                 DrawingModel &drawingModel);
