# 32-bit ARM Linux with hardware floating point: a Debian sysroot (tools/make-sysroot) or a board vendor's SDK.
#
#   ZELTACONNECT_SYSROOT      headers and libraries of the board: cache variable, environment variable, then
#                             SDKTARGETSYSROOT (set by the environment script of a Yocto SDK), then
#                             build/sysroot-armhf (created by tools/make-sysroot)
#   ZELTACONNECT_TOOL_PREFIX  prefix of the names of the cross tools (arm-linux-gnueabihf-)
#   ZELTACONNECT_HOST_QT_BIN  folder of this machine's moc and rcc (see cmake/HostQtTools.cmake)
#   ZELTACONNECT_EMULATOR     program that runs ARM programs here, for the tests (qemu-arm-static); empty: none

set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR arm)

# CMake also reads this file in its trial builds, which do not see the cache.
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES ZELTACONNECT_SYSROOT ZELTACONNECT_TOOL_PREFIX)

if(NOT ZELTACONNECT_SYSROOT)
    foreach(variable IN ITEMS ZELTACONNECT_SYSROOT SDKTARGETSYSROOT)
        if(NOT "$ENV{${variable}}" STREQUAL "")
            set(ZELTACONNECT_SYSROOT "$ENV{${variable}}" CACHE PATH "Headers and libraries of the board")
            break()
        endif()
    endforeach()
endif()
if(NOT ZELTACONNECT_SYSROOT)
    get_filename_component(ZELTACONNECT_SYSROOT "${CMAKE_CURRENT_LIST_DIR}/../../build/sysroot-armhf" ABSOLUTE)
endif()
if(NOT IS_DIRECTORY "${ZELTACONNECT_SYSROOT}/usr")
    message(FATAL_ERROR "No sysroot at '${ZELTACONNECT_SYSROOT}': set ZELTACONNECT_SYSROOT to the board's, "
        "or run tools/make-sysroot")
endif()
set(CMAKE_SYSROOT "${ZELTACONNECT_SYSROOT}")

# An SDK's environment script sets its compiler with the flags of the board's processor.
if("$ENV{SDKTARGETSYSROOT}" STREQUAL "" OR "$ENV{CXX}" STREQUAL "")
    if(NOT ZELTACONNECT_TOOL_PREFIX)
        set(ZELTACONNECT_TOOL_PREFIX "$ENV{ZELTACONNECT_TOOL_PREFIX}")
    endif()
    if(NOT ZELTACONNECT_TOOL_PREFIX)
        set(ZELTACONNECT_TOOL_PREFIX arm-linux-gnueabihf-)
    endif()
    set(CMAKE_CXX_COMPILER "${ZELTACONNECT_TOOL_PREFIX}g++")
endif()

# GCC reports parameters that it passes differently from GCC 6, which was never used here.
set(CMAKE_CXX_FLAGS_INIT "-Wno-psabi")

# Libraries of the board, programs of this machine.
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

if(NOT DEFINED ZELTACONNECT_EMULATOR)
    set(ZELTACONNECT_EMULATOR qemu-arm-static)
endif()
if(ZELTACONNECT_EMULATOR)
    set(CMAKE_CROSSCOMPILING_EMULATOR "${ZELTACONNECT_EMULATOR};-L;${ZELTACONNECT_SYSROOT}")
endif()
