#pragma once

#include <QString>

// What differs between the test programs. CMake writes the values into a source file of each program, so that
// all other sources are compiled in the same way in every program and every checkout, and a compiler cache
// can share them.

namespace testsupport {

/// Address of the sound engine of this program, 127.20.21.N.
extern const char *const engineAddress;
/// False if nothing listens at that address.
extern const bool hasOwnEngine;
/// Folder with the `ping` of the tests.
extern const char *const binFolder;
/// Folder to import the built module from. Only for programs that CMake declares with MODULE.
extern const char *const moduleFolder;

inline QString qmlDir()
{
    return QString::fromUtf8(moduleFolder);
}

} // namespace testsupport
