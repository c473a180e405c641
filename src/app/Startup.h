#pragma once

// Builds every manager in a fixed order, runs the event loop and tears the
// managers down in reverse order. Returns the process exit code.
int runGlimmora(int argc, char *argv[]);
