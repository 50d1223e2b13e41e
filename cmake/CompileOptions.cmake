# Warnings, Qt strictness and sanitizers for all targets.

add_library(zeltaconnect-options INTERFACE)
target_compile_options(zeltaconnect-options INTERFACE -Wall -Wextra -Wconversion -Wshadow)
if(ZELTACONNECT_WERROR)
    target_compile_options(zeltaconnect-options INTERFACE -Werror)
endif()
# The board has Qt 5.12, so nothing that 5.12 deprecates is used.
target_compile_definitions(zeltaconnect-options INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_KEYWORDS QT_DISABLE_DEPRECATED_BEFORE=0x050C00)
# Without this, calls for a file of 2 GiB or more fail on 32-bit systems.
target_compile_definitions(zeltaconnect-options INTERFACE _FILE_OFFSET_BITS=64)

# Hardening of optimised builds, because the module parses data from a network. Sanitizers have better checks, and
# _FORTIFY_SOURCE has no effect without optimisation.
if(NOT ZELTACONNECT_SANITIZE)
    include(CheckPIESupported)
    check_pie_supported(LANGUAGES CXX)
    set(shipped "$<OR:$<CONFIG:Release>,$<CONFIG:RelWithDebInfo>,$<CONFIG:MinSizeRel>>")
    target_compile_options(zeltaconnect-options INTERFACE
        "$<${shipped}:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=2;-fstack-protector-strong>")
    target_link_options(zeltaconnect-options INTERFACE "$<${shipped}:LINKER:-z,relro,-z,now>")
endif()

if(ZELTACONNECT_SANITIZE)
    add_compile_options(-fsanitize=${ZELTACONNECT_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer -O1)
    add_link_options(-fsanitize=${ZELTACONNECT_SANITIZE})
endif()

# Only lines of the product are counted. Several threads count at the same time, so the counters are atomic.
add_library(zeltaconnect-counted INTERFACE)
if(ZELTACONNECT_COVERAGE)
    target_compile_options(zeltaconnect-counted INTERFACE --coverage -fprofile-update=atomic)
    # A library instead of an option, because it also applies to programs that link the static core.
    target_link_libraries(zeltaconnect-counted INTERFACE gcov)
endif()

# Disables the checks for files that moc and CMake generate.
file(WRITE "${PROJECT_BINARY_DIR}/.clang-tidy" "Checks: '-*,llvm-twine-local'\n")

# Reports missing symbols when the plug-in is linked instead of when it is imported. Sanitizer builds cannot do so, because
# the executable provides the sanitizer's symbols.
if(NOT ZELTACONNECT_SANITIZE)
    set(ZELTACONNECT_SHARED_LINK_OPTIONS "LINKER:--no-undefined")
endif()
