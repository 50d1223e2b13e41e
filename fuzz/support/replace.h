#pragma once

#include <dlfcn.h>

// A function that the program defines under the name of one of the system's takes its place in every library
// of the process, as long as it is visible.
#define ZELTA_REPLACEMENT extern "C" __attribute__((visibility("default")))

// The function that was replaced.
#define ZELTA_REPLACED(name) reinterpret_cast<decltype(&::name)>(::dlsym(RTLD_NEXT, #name))
