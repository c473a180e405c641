#pragma once

// xcb's XKB header names a struct field `explicit`, which C++ reserves.
#define explicit dont_use_cxx_explicit
#include <xcb/xkb.h>
#undef explicit
