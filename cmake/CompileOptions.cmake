# Warnings, Qt strictness and sanitizers, shared by every target of the house.

add_library(zeltaconnect-options INTERFACE)
target_compile_options(zeltaconnect-options INTERFACE -Wall -Wextra -Wconversion -Wshadow)
if(ZELTACONNECT_WERROR)
    target_compile_options(zeltaconnect-options INTERFACE -Werror)
endif()
# The board has Qt 5.12: nothing that 5.12 already deprecates is used.
target_compile_definitions(zeltaconnect-options INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_KEYWORDS QT_DISABLE_DEPRECATED_BEFORE=0x050C00)
# On 32-bit systems, questions about a file of 2 GiB or more fail without this.
target_compile_definitions(zeltaconnect-options INTERFACE _FILE_OFFSET_BITS=64)

# What is shipped checks its buffers and keeps its tables read-only; a module parses what a network sends it.
# Sanitizers and unoptimised builds have better checks or none to optimise.
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

# The product alone is counted, whoever links it. Its threads count at the same time.
add_library(zeltaconnect-counted INTERFACE)
if(ZELTACONNECT_COVERAGE)
    target_compile_options(zeltaconnect-counted INTERFACE --coverage -fprofile-update=atomic)
    # A library and not an option: only that reaches the programs that link the static core.
    target_link_libraries(zeltaconnect-counted INTERFACE gcov)
endif()

# Files that moc and CMake write are nobody's to tidy.
file(WRITE "${PROJECT_BINARY_DIR}/.clang-tidy" "Checks: '-*,llvm-twine-local'\n")

# A shared object must name everything it needs, or the QML engine meets the missing symbol at import.
# Sanitizer run-times are resolved by the executable, so such builds cannot ask for that.
if(NOT ZELTACONNECT_SANITIZE)
    set(ZELTACONNECT_SHARED_LINK_OPTIONS "LINKER:--no-undefined")
endif()
