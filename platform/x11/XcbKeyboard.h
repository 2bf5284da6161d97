#pragma once

// The keyboard extension's C header names a field with a word that C++ keeps for itself.
#define explicit explicitMap
#include <xcb/xkb.h>
#undef explicit
