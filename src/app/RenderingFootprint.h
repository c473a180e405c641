#pragma once

// The overlay windows cover whole displays, mostly with nothing. On a
// software renderer every buffer of such a window costs a display's worth of
// memory, so the windows get none that their flat 2D scene does not use: no
// depth buffer (the scene is drawn back to front instead), no stencil (no
// clip is rotated), and a small texture atlas for the few icons and glyphs
// each window holds. Settings the user made in the environment stand.
namespace RenderingFootprint {

// Before the application object exists.
void trim();

} // namespace RenderingFootprint
