#pragma once

#include <dlfcn.h>

// A visible function of the program with the name of a system function replaces it in all libraries of the
// process.
#define ZELTA_REPLACEMENT extern "C" __attribute__((visibility("default")))

// The function that was replaced.
#define ZELTA_REPLACED(name) reinterpret_cast<decltype(&::name)>(::dlsym(RTLD_NEXT, #name))
